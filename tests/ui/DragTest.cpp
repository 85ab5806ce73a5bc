#include "ui/support/ViewsTest.h"

#include <QtCore/QMimeData>
#include <QtGui/QDragEnterEvent>

using namespace ovrin;

namespace {

class DragTest : public ViewsTest
{
protected:
    /// Carries it over the middle of `target` and lets go. Whether it was taken.
    bool drop(QQuickItem* target, const QMimeData& data)
    {
        const QPoint at = target->mapToScene(target->boundingRect().center()).toPoint();
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window, &enter);
        QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window, &move);
        QDropEvent fall(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        fall.setAccepted(false);
        QCoreApplication::sendEvent(window, &fall);
        return fall.isAccepted();
    }
    QStringList ingredients() { return model->editor()->draft().ingredients; }
};

TEST_F(DragTest, whatIsDroppedOnTheWindowIsImported)
{
    struct Case
    {
        const char* what;
        QList<QUrl> urls;
        QString text;
        QStringList requests;
        /// The form of Mozilla's browsers, beside the text.
        QString mozilla = {};
    };
    const QString page = u"https://a.example/soup?x=1#top"_qs;
    const Case cases[]{
        {"a link", {QUrl(page)}, u"Soup"_qs, {page}},
        {"a link of a Mozilla browser", {}, page, {page}, page + u"\nSoup"_qs},
        {"a file", {QUrl(u"file:///tmp/a%20b.pdf"_qs)}, u"/tmp/a b.pdf"_qs, {u"/tmp/a b.pdf"_qs}},
        {"several",
         {QUrl(page), QUrl(u"file:///tmp/a.pdf"_qs), QUrl(u"HTTP://b.example/"_qs)},
         {},
         {page, u"/tmp/a.pdf"_qs, u"http://b.example/"_qs}},
        {"text that is links",
         {},
         u" https://a.example/2 \r\nhttp://a.example/3\n"_qs,
         {u"https://a.example/2"_qs, u"http://a.example/3"_qs}},
        {"text that is none", {}, u"a recipe for soup, see https://a.example"_qs, {}},
        {"a script", {QUrl(u"javascript:alert(1)"_qs)}, u"javascript:alert(1)"_qs, {}},
    };
    open();
    for (const Case& c : cases) {
        QMimeData data;
        if (!c.urls.isEmpty())
            data.setUrls(c.urls);
        if (!c.text.isEmpty())
            data.setText(c.text);
        if (!c.mozilla.isEmpty())
            data.setData(u"text/x-moz-url"_qs,
                         QByteArray(reinterpret_cast<const char*>(c.mozilla.utf16()), c.mozilla.size() * 2));
        fixture.requests.clear();
        EXPECT_EQ(drop(window->contentItem(), data), !c.requests.isEmpty()) << c.what;
        EXPECT_TRUE(QTest::qWaitFor([&] { return model->activity().isEmpty(); }));
        EXPECT_EQ(fixture.requests, c.requests) << c.what;
        model->dismissFailure();
    }
}

TEST_F(DragTest, aPictureDroppedOrPastedInTheEditorIsItsPhoto)
{
    const QString picture = fixture.library.path(u"dish.png"_qs);
    QFile file(picture);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("dish") == 4);
    file.close();
    open();
    model->createRecipe();
    QQuickItem* const photo = item(u"editorPhoto"_qs);
    ASSERT_TRUE(photo);
    const auto bytes = [&] { return model->editor()->draft().imageData.value_or(QByteArray()); };

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(picture)});
    EXPECT_TRUE(drop(photo, data));
    EXPECT_EQ(bytes(), "made of dish");
    EXPECT_TRUE(fixture.requests.isEmpty()) << "it is not imported as well";

    data.setUrls({QUrl::fromLocalFile(fixture.library.path(u"."_qs))});
    drop(photo, data);
    EXPECT_FALSE(model->editor()->photoProblem().isEmpty());
    EXPECT_EQ(bytes(), "made of dish") << "what is no picture takes nothing away";

    fixture.pasteboard.put({"plate", u"image/png"_qs});
    photo->forceActiveFocus();
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(bytes(), "made of plate");
    EXPECT_TRUE(model->editor()->photoProblem().isEmpty());
    key(Qt::Key_Delete);
    EXPECT_FALSE(model->editor()->draft().imageData);
}

TEST_F(DragTest, anIngredientIsDraggedByItsHandle)
{
    RecipeDraft draft;
    draft.title = u"Soup"_qs;
    draft.ingredients = {u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs};
    fixture.library.add(draft);
    open();
    openFirst();
    model->editRecipe();
    const auto drag = [&](int from, int to) {
        QQuickItem* const field = items(u"ingredient"_qs).at(from);
        const QPoint start = field->mapToScene(QPointF(-20, field->height() / 2)).toPoint();
        const int distance = qRound((to - from) * field->height());
        QTest::mousePress(window, Qt::LeftButton, {}, start);
        for (int step = 1; step <= 20; ++step)
            QTest::mouseMove(window, start + QPoint(0, distance * step / 20));
        QTest::mouseRelease(window, Qt::LeftButton, {}, start + QPoint(0, distance));
    };
    item(u"editorForm"_qs)->setProperty("contentY", 300);
    drag(0, 2);
    EXPECT_EQ(ingredients(), QStringList({u"b"_qs, u"c"_qs, u"a"_qs, u"d"_qs}));
    drag(3, 0);
    EXPECT_EQ(ingredients(), QStringList({u"d"_qs, u"b"_qs, u"c"_qs, u"a"_qs}));
}

} // namespace
