#include "app/support/ProgramTest.h"
#include "helpers/document/Pdfs.h"
#include "model/store/Sqlite.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

using namespace ovrin;
using namespace ovrin::testing;

namespace {

using StartTest = ProgramTest;

/// A page with two recipes.
QByteArray sauces()
{
    using Pdfs::textAt;
    return Pdfs::pages(
        {textAt(60, 740, "Green Sauce", 28) + textAt(60, 700, "Ingredients", 16) +
         textAt(60, 680, "1 bunch parsley") + textAt(60, 664, "2 eggs") + textAt(60, 630, "Method", 16) +
         textAt(60, 610, "Chop the parsley and mix it with the eggs.") + textAt(60, 540, "Red Sauce", 28) +
         textAt(60, 500, "Ingredients", 16) + textAt(60, 480, "4 tomatoes") + textAt(60, 464, "1 onion") +
         textAt(60, 430, "Method", 16) + textAt(60, 410, "Cook it down slowly.")});
}

TEST_F(StartTest, aFileFromOutsideOpensTheLibraryWindowBesideACookWindow)
{
    start();
    const auto isInFront = [this](const QString& window) {
        return until([&] { return find(window).value_or(Accessible()).is(Accessible::Active); });
    };
    ASSERT_TRUE(press(u"Lemony Garlic Spaghetti"_qs) && press(u"Start Cooking"_qs));
    ASSERT_TRUE(isInFront(u"Cook: Lemony Garlic Spaghetti"_qs));
    ASSERT_TRUE(desktop.goTo(u"Spaghetti .* Ovrin"_qs) && isInFront(u"Lemony Garlic Spaghetti — Ovrin"_qs));
    ASSERT_TRUE(desktop.strike({u"ctrl+w"_qs}) && disappears(u"Start Cooking"_qs));
    ASSERT_TRUE(find(u"Next"_qs)) << "cooking goes on";

    QFile file(desktop.folder(u"sauces.pdf"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(sauces()) > 0);
    file.close();
    EXPECT_EQ(startAgain({file.fileName()}), 0);
    ASSERT_TRUE(appears(u"Review Import"_qs));
    EXPECT_TRUE(find(u"This file holds several recipes, and this is the first one. Check the ingredients and "
                     "steps, then save."_qs));
    EXPECT_EQ(reader.text(find(u"Title"_qs, u"Review Import"_qs).value_or(Accessible())), u"Green Sauce"_qs);
}

TEST_F(StartTest, theWindowStandsAndHearsOfFilesBeforeTheLibraryIsRead)
{
    const QString library = desktop.folder(u"data/ovrin"_qs);
    ASSERT_TRUE(QDir().mkpath(library));
    std::optional<sqlite::Connection> other(std::in_place, library + u"/Library.sqlite"_qs,
                                            sqlite::Connection::Mode::Create);
    other->execute("BEGIN EXCLUSIVE");
    start();
    ASSERT_TRUE(appears(u"Ovrin"_qs));
    EXPECT_FALSE(find(u"Recipes"_qs));
    QFile file(desktop.folder(u"sauces.pdf"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(sauces()) > 0);
    file.close();
    EXPECT_EQ(startAgain({file.fileName()}), 0);
    seen = reader.everything();
    EXPECT_FALSE(find(u"Recipes"_qs));
    other.reset();
    EXPECT_TRUE(appears(u"Review Import"_qs)) << "what was asked for meanwhile";
}

TEST_F(StartTest, theWindowComesBackInTheSizeInWhichItWasLeft)
{
    const QSize size(900, 640);
    start();
    ASSERT_TRUE(appears(u"Lemony Garlic Spaghetti"_qs) && desktop.resize(u"^Ovrin$"_qs, size));
    ASSERT_TRUE(QTest::qWaitFor([&] { return desktop.sizeOf(u"^Ovrin$"_qs) == size; }, patience));
    ASSERT_TRUE(desktop.strike({u"ctrl+q"_qs}) && program.waitForFinished(patience));
    EXPECT_EQ(program.exitCode(), 0) << program.readAll().constData();
    start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.sizeOf(u"^Ovrin$"_qs) == size; }, patience));
}

TEST_F(StartTest, whatIsBeingWrittenSurvivesTheProgramsDeath)
{
    start();
    ASSERT_TRUE(press(u"Lemony Garlic Spaghetti"_qs) && press(u"Edit"_qs));
    ASSERT_TRUE(write(u"Title"_qs, u"Lemony Spaghetti"_qs, u"Edit Recipe"_qs));
    const QString kept = desktop.folder(u"data/ovrin/Unsaved.json"_qs);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(kept); }, patience));
    program.kill();
    program.waitForFinished();
    start();
    ASSERT_TRUE(appears(u"Edit Recipe"_qs));
    EXPECT_TRUE(find(u"Ovrin was closed before this was saved. Save it now, or cancel to drop it."_qs));
    ASSERT_TRUE(press(u"Save"_qs, u"Edit Recipe"_qs) && appears(u"Lemony Spaghetti"_qs, u"Recipes"_qs));
    EXPECT_FALSE(find(u"Lemony Garlic Spaghetti"_qs));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !QFile::exists(kept); }, patience));
}

TEST_F(StartTest, aLibraryThatCannotBeOpenedIsToldInAWindowAndLeftAlone)
{
    const QByteArray notes = "not a folder at all";
    QFile file(desktop.folder(u"notes.txt"_qs));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(notes) == notes.size());
    file.close();
    start({u"--store"_qs, file.fileName()});
    ASSERT_TRUE(appears(u"Couldn’t Open the Recipe Library"_qs));
    EXPECT_TRUE(find(file.fileName())) << "where it was looked for";
    EXPECT_TRUE(find(u"Choose Another Folder…"_qs));
    ASSERT_TRUE(press(u"Quit"_qs) && program.waitForFinished(patience));
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_TRUE(program.readAll().contains("Couldn't open the recipe library: "));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), notes);
}

} // namespace
