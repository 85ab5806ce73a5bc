#include "ui/editor/EditorModel.h"

#include "ui/editor/DraftKeeper.h"
#include "ui/images/DraftPhotos.h"
#include "ui/support/Fakes.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <gtest/gtest.h>

using namespace ovrin;

namespace {

class EditorModelTest : public testing::Test
{
protected:
    FakePhotoMaker photoMaker;
    FakePasteboard pasteboard;
    DraftPhotos photos;
    EditorModel editor{photoMaker, pasteboard, photos};
    QAbstractItemModelTester ingredientsTester{editor.ingredients(),
                                               QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester stepsTester{editor.steps(),
                                         QAbstractItemModelTester::FailureReportingMode::Fatal};

    void open(const RecipeDraft& draft) { editor.open({u"Edit Recipe"_qs, {}, draft}); }
    void openWithIngredients(const QStringList& lines)
    {
        RecipeDraft draft;
        draft.ingredients = lines;
        open(draft);
    }
    QStringList lines() { return editor.draft().ingredients; }
};

TEST_F(EditorModelTest, aPastedBlockBecomesRows)
{
    struct Case
    {
        QStringList before;
        int row;
        QString text;
        QStringList after;
        int last;
    };
    const Case cases[]{
        {{u""_qs}, 0, u"2 eggs\n\n  1 cup milk"_qs, {u"2 eggs"_qs, u"1 cup milk"_qs}, 1},
        {{u"a"_qs, u"z"_qs}, 0, u" a \r\n\tb \n- c"_qs, {u" a "_qs, u"b"_qs, u"- c"_qs, u"z"_qs}, 2},
        {{u"a"_qs}, 0, u"a\n"_qs, {u"a"_qs}, 0},
        {{u"a"_qs}, 1, u"b"_qs, {u"a"_qs}, 1},
        {{u"a"_qs}, -1, u"b"_qs, {u"a"_qs}, -1},
    };
    for (const Case& c : cases) {
        openWithIngredients(c.before);
        EXPECT_EQ(editor.ingredients()->write(c.row, c.text), c.last);
        EXPECT_EQ(lines(), c.after) << qPrintable(c.text);
    }
}

TEST_F(EditorModelTest, pasteListStripsBulletsAndFillsBlankLines)
{
    openWithIngredients({u""_qs, u"butter"_qs, u" "_qs});
    pasteboard.setText(u"- flour\n* sugar\n☐ salt\n\n • ▢ 2-3 eggs -"_qs);
    editor.pasteIngredients();
    EXPECT_EQ(lines(), QStringList({u"butter"_qs, u"flour"_qs, u"sugar"_qs, u"salt"_qs, u"2-3 eggs"_qs}));

    openWithIngredients({u""_qs, u"butter"_qs});
    pasteboard.setText(u" \n- \n"_qs);
    editor.pasteIngredients();
    EXPECT_EQ(lines(), QStringList({u""_qs, u"butter"_qs}));
}

TEST_F(EditorModelTest, rowsAreAddedMovedAndRemoved)
{
    openWithIngredients({u"a"_qs, u"b"_qs, u"c"_qs});
    editor.ingredients()->move(0, 2);
    EXPECT_EQ(lines(), QStringList({u"b"_qs, u"c"_qs, u"a"_qs}));
    editor.ingredients()->move(2, 1);
    editor.ingredients()->move(1, 3);
    EXPECT_EQ(lines(), QStringList({u"b"_qs, u"a"_qs, u"c"_qs}));
    EXPECT_EQ(editor.ingredients()->insertAfter(0), 1);
    EXPECT_EQ(editor.ingredients()->insertAfter(99), 4);
    editor.ingredients()->remove(2);
    editor.ingredients()->remove(17);
    EXPECT_EQ(lines(), QStringList({u"b"_qs, u""_qs, u"c"_qs, u""_qs}));
}

TEST_F(EditorModelTest, stepsKeepWhatIsBeingTypedAndHandOverParagraphs)
{
    RecipeDraft draft;
    draft.steps = {{QUuid::createUuid(), std::nullopt, {u"Boil.\nwater"_qs}}};
    open(draft);
    EXPECT_EQ(editor.draft(), draft) << "untouched steps are handed over as they came";

    EXPECT_EQ(editor.steps()->append(), 1);
    editor.steps()->setStepTitle(1, u"For the sauce"_qs);
    editor.steps()->setStepText(1, u"Mix\nwell.\n\nRest.\n\n"_qs);
    EXPECT_EQ(editor.steps()->index(1).data(StepRows::TextRole).toString(), u"Mix\nwell.\n\nRest.\n\n"_qs);
    EXPECT_EQ(editor.draft().steps.at(1).paragraphs, QStringList({u"Mix well."_qs, u"Rest."_qs}));
    editor.steps()->move(1, 0);
    EXPECT_EQ(editor.draft().steps.first().title, u"For the sauce"_qs);
    editor.steps()->remove(0);
    EXPECT_EQ(editor.draft().steps, draft.steps);
    EXPECT_FALSE(editor.isChanged());
}

TEST_F(EditorModelTest, emptyMinutesAreAbsentAndOtherTextIsIgnored)
{
    open({});
    editor.setPrepMinutes(u" 15 "_qs);
    editor.setCookMinutes(u"soon"_qs);
    EXPECT_EQ(editor.draft().prepMinutes, 15);
    EXPECT_EQ(editor.draft().cookMinutes, std::nullopt);
    editor.setPrepMinutes(QString());
    EXPECT_EQ(editor.draft().prepMinutes, std::nullopt);
}

TEST_F(EditorModelTest, aWebPageThatIsNoneIsSaidToBeNone)
{
    open({});
    editor.setWebPage(u"example.com/soup"_qs);
    EXPECT_EQ(editor.draft().sourceURL, QUrl(u"https://example.com/soup"_qs));
    EXPECT_TRUE(editor.isWebPageReadable());
    editor.setWebPage(u"my grandmother"_qs);
    EXPECT_EQ(editor.draft().sourceURL, std::nullopt);
    EXPECT_FALSE(editor.isWebPageReadable());
    editor.setWebPage(QString());
    EXPECT_TRUE(editor.isWebPageReadable());
    EXPECT_FALSE(editor.isChanged());
}

TEST_F(EditorModelTest, photosArePassedThroughThePhotoMaker)
{
    open({});
    QTemporaryDir folder;
    QFile file(folder.filePath(u"dish.png"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("foreign");
    file.close();
    editor.choosePhoto(QUrl::fromLocalFile(file.fileName()));
    EXPECT_EQ(editor.draft().imageData, QByteArray("made of foreign"));
    EXPECT_EQ(photos.bytes(editor.photo().path().section(u'/', -1)), QByteArray("made of foreign"));

    photoMaker.isBroken = true;
    pasteboard.put({"not a picture", u"image/png"_qs});
    EXPECT_TRUE(editor.pastePhoto());
    EXPECT_FALSE(editor.photoProblem().isEmpty());
    EXPECT_EQ(editor.draft().imageData, QByteArray("made of foreign")) << "a failed choice keeps the photo";
    editor.choosePhoto(QUrl::fromLocalFile(folder.path()));
    EXPECT_FALSE(editor.photoProblem().isEmpty());

    editor.removePhoto();
    EXPECT_EQ(editor.draft().imageData, std::nullopt);
    EXPECT_TRUE(editor.photo().isEmpty());
}

TEST_F(EditorModelTest, savesOnceAndCancelHandsOverNothing)
{
    QSignalSpy saved(&editor, &EditorModel::saved);
    QSignalSpy cancelled(&editor, &EditorModel::cancelled);
    open({});
    editor.setTitle(u"Soup"_qs);
    EXPECT_TRUE(editor.isChanged());
    editor.save();
    editor.save();
    ASSERT_EQ(saved.size(), 1);
    EXPECT_EQ(saved.first().first().value<RecipeDraft>().title, u"Soup"_qs);
    open({});
    editor.setTitle(u"Cake"_qs);
    editor.cancel();
    EXPECT_EQ(saved.size(), 1);
    EXPECT_EQ(cancelled.size(), 1);
    EXPECT_FALSE(editor.isOpen());
}

TEST(DraftKeeper, bringsBackWhatWasKeptAndNothingElse)
{
    QTemporaryDir folder;
    const DraftKeeper keeper(folder.filePath(u"new/kept.json"_qs));
    EXPECT_FALSE(keeper.kept());
    KeptDraft kept{u"Edit Recipe"_qs, u"notice"_qs, QUuid::createUuid(), {}};
    kept.draft.title = u"Crème ½"_qs;
    kept.draft.imageData = QByteArray("\xff\xd8\0", 3);
    kept.draft.steps = {{QUuid::createUuid(), u"Sauce"_qs, {u"Stir."_qs}}};
    ASSERT_TRUE(keeper.keep(kept));
    EXPECT_EQ(keeper.kept(), kept);
    keeper.forget();
    EXPECT_FALSE(keeper.kept());

    QFile file(folder.filePath(u"new/kept.json"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"draft\": {\"title\": \"half wri");
    file.close();
    EXPECT_FALSE(keeper.kept());
}

} // namespace
