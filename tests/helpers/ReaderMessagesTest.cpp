#include "reader/Fields.h"
#include "reader/Frame.h"
#include "reader/PhotoMessage.h"

#include <gtest/gtest.h>

namespace ovrin::reader {
namespace {

const Frame someFrame{MessageKind::Photo, QByteArrayLiteral("body")};

TEST(Frame, ArrivesWholeInPiecesOfAnySize)
{
    const auto bytes = encoded(someFrame);
    for (qsizetype piece = 1; piece <= bytes.size(); ++piece) {
        FrameAssembler assembler(4);
        for (qsizetype at = 0; at < bytes.size(); at += piece) {
            EXPECT_FALSE(assembler.frame());
            EXPECT_TRUE(assembler.append(bytes.mid(at, piece)));
        }
        const auto frame = assembler.frame();
        ASSERT_TRUE(frame) << "in pieces of " << piece;
        EXPECT_EQ(frame->kind, someFrame.kind);
        EXPECT_EQ(frame->body, someFrame.body);
    }
}

TEST(Frame, RefusesWhatIsNoFrame)
{
    const auto bytes = encoded(someFrame);
    const auto with = [&](int at, char byte) {
        auto changed = bytes;
        changed[at] = byte;
        return changed;
    };
    struct Case
    {
        const char* what;
        QByteArray bytes;
    };
    for (const auto& [what, piece] : {
             Case{"another magic", with(0, 'X')},
             Case{"another version", with(4, 2)},
             Case{"a body over the limit", with(8, 5)},
             Case{"a body of four gigabytes", with(11, '\xff')},
             Case{"a byte too many", bytes + 'x'},
         }) {
        FrameAssembler assembler(4);
        EXPECT_FALSE(assembler.append(piece)) << what;
        EXPECT_FALSE(assembler.frame()) << what;
    }
    FrameAssembler cutShort(4);
    EXPECT_TRUE(cutShort.append(bytes.chopped(1)));
    EXPECT_FALSE(cutShort.frame());
}

TEST(Fields, ComeBackAsTheyWere)
{
    const auto bytes =
        FieldWriter().u16(0xfffe).u32(0xfffffffd).f64(-0.1).bytes("a\0b").text(u"½ cup").bytes();
    FieldReader fields(bytes);
    EXPECT_EQ(fields.u16(), 0xfffe);
    EXPECT_EQ(fields.u32(), 0xfffffffd);
    EXPECT_EQ(fields.f64(), -0.1);
    EXPECT_EQ(fields.bytes(), QByteArrayView("a\0b"));
    EXPECT_FALSE(fields.isWhole());
    EXPECT_EQ(fields.text(), u"½ cup");
    EXPECT_TRUE(fields.isWhole());
}

TEST(Fields, BelieveNoSizeThatIsNotThere)
{
    const auto huge = FieldWriter().u32(0xffffffff).u32(1).bytes();
    FieldReader asBytes(huge);
    EXPECT_TRUE(asBytes.bytes().isEmpty());
    EXPECT_FALSE(asBytes.isIntact());
    EXPECT_EQ(asBytes.u32(), 0u) << "nothing is read past the first field that does not fit";

    FieldReader asCount(huge);
    EXPECT_EQ(asCount.count(1), 0u);
    EXPECT_FALSE(asCount.isIntact());

    const auto two = FieldWriter().u32(2).u32(7).u32(8).bytes();
    FieldReader fitting(two);
    EXPECT_EQ(fitting.count(4), 2u);
    EXPECT_TRUE(fitting.isIntact());
}

TEST(PhotoAnswer, ComesBackOrNotAtAll)
{
    const PhotoAnswer answer{QByteArrayLiteral("jpeg"), QStringLiteral("00A0FF")};
    const auto body = answer.encoded();
    const auto decoded = PhotoAnswer::decoded(body);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->jpeg, answer.jpeg);
    EXPECT_EQ(decoded->averageColorHex, answer.averageColorHex);

    for (qsizetype size = 0; size < body.size(); ++size) {
        EXPECT_FALSE(PhotoAnswer::decoded(body.first(size))) << size;
    }
    EXPECT_FALSE(PhotoAnswer::decoded(body + 'x'));
    for (const auto* color : {u"00a0ff", u"00A0F", u"00A0FG", u"<b></b>"}) {
        EXPECT_FALSE(PhotoAnswer::decoded(PhotoAnswer{answer.jpeg, QString::fromUtf16(color)}.encoded()));
    }
    EXPECT_FALSE(PhotoAnswer::decoded(PhotoAnswer{{}, answer.averageColorHex}.encoded()));
}

} // namespace
} // namespace ovrin::reader
