#include <examples/embed_qt/qt_translation.h>
#include <plix/hosting.h>

#include <QtGui/QInputDevice>
#include <QtGui/QKeyEvent>
#include <QtGui/QPointingDevice>
#include <QtGui/QWheelEvent>

#include <gtest/gtest.h>

#include <set>

namespace embed_qt {
namespace {

using namespace plix;

constexpr std::uint32_t none = 0;

TEST(QtTranslation, EveryModifierHasItsOwn)
{
    EXPECT_EQ(modifiersFrom(Qt::NoModifier), none);
    EXPECT_EQ(modifiersFrom(Qt::ShiftModifier), std::uint32_t { HostModifierShift });
    EXPECT_EQ(modifiersFrom(Qt::ControlModifier), std::uint32_t { HostModifierControl });
    EXPECT_EQ(modifiersFrom(Qt::AltModifier), std::uint32_t { HostModifierAlternate });
    EXPECT_EQ(modifiersFrom(Qt::MetaModifier), std::uint32_t { HostModifierCommand });
    EXPECT_EQ(modifiersFrom(Qt::KeypadModifier | Qt::GroupSwitchModifier), none);
    EXPECT_EQ(modifiersFrom(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier),
        std::uint32_t { HostModifierShift | HostModifierControl | HostModifierAlternate | HostModifierCommand });
}

TEST(QtTranslation, ButtonsAreCountedFromTheLeftOne)
{
    constexpr Qt::MouseButton buttons[] = { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton };
    for (int number = 0; number < 5; ++number) {
        EXPECT_EQ(buttonFrom(buttons[number]), number);
        EXPECT_EQ(buttonsFrom(buttons[number]), 1U << number);
    }
    EXPECT_EQ(buttonsFrom(Qt::NoButton), 0U);
    EXPECT_EQ(buttonsFrom(Qt::LeftButton | Qt::MiddleButton | Qt::ForwardButton), 0b10101U);
}

struct KeyCase {
    int code;
    Qt::KeyboardModifiers modifiers;
    char const* text;
    char32_t character;
};

TEST(QtTranslation, TheCharacterOfAKeyIsItsTextOrElseItsLetter)
{
    constexpr KeyCase cases[] {
        { Qt::Key_A, Qt::NoModifier, "a", U'a' },
        { Qt::Key_A, Qt::ShiftModifier, "A", U'A' },
        { Qt::Key_A, Qt::ControlModifier, "\x01", U'a' },
        { Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier, "\x01", U'A' },
        { Qt::Key_A, Qt::ControlModifier, "", U'a' },
        { Qt::Key_1, Qt::ControlModifier, "", U'1' },
        { Qt::Key_Adiaeresis, Qt::NoModifier, "\xC3\xA4", 0xE4 },
        { Qt::Key_Adiaeresis, Qt::ControlModifier, "", 0xE4 },
        { Qt::Key_unknown, Qt::NoModifier, "\xF0\x9F\x8D\x8B", 0x1F34B },
        { Qt::Key_Delete, Qt::NoModifier, "\x7F", 0 },
        { Qt::Key_Return, Qt::NoModifier, "\r", 0 },
        { Qt::Key_Left, Qt::NoModifier, "", 0 },
        { Qt::Key_Escape, Qt::NoModifier, "\x1B", 0 },
    };
    // Qt would make one that it keeps.
    QInputDevice const keyboard;
    for (auto const& each : cases) {
        QKeyEvent const event(
            QEvent::KeyPress, each.code, each.modifiers, 38, 0x61, 0, QString::fromUtf8(each.text), true, 1, &keyboard);
        auto const key = keyFrom(event);
        EXPECT_EQ(key.character, each.character) << each.code;
        EXPECT_EQ(key.text, each.text) << each.code;
        EXPECT_EQ(key.modifiers, modifiersFrom(each.modifiers)) << each.code;
        EXPECT_EQ(key.keysym, 0x61U);
        EXPECT_EQ(key.keyCode, 38);
        EXPECT_TRUE(key.isRepeat);
    }
}

TEST(QtTranslation, ANotchIsThreeLines)
{
    struct Case {
        QPoint angle;
        Size lines;
    };
    QPointingDevice const device;
    for (auto const& [angle, lines] : { Case { { 0, 120 }, { 0, 3 } }, Case { { 0, -240 }, { 0, -6 } },
             Case { { 120, 0 }, { 3, 0 } }, Case { { 0, 0 }, { 0, 0 } }, Case { { -10, 30 }, { -0.25F, 0.75F } } }) {
        QWheelEvent const event(
            {}, {}, {}, angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false, Qt::MouseEventNotSynthesized, &device);
        EXPECT_EQ(linesFrom(event), lines) << angle.x() << ' ' << angle.y();
    }
}

TEST(QtTranslation, EveryCursorHasAShapeOfItsOwn)
{
    std::set<Qt::CursorShape> shapes;
    auto const last = static_cast<int>(plix::CursorShape::hidden);
    for (int shape = 0; shape <= last; ++shape)
        shapes.insert(shapeFrom(static_cast<plix::CursorShape>(shape)));
    EXPECT_EQ(static_cast<int>(shapes.size()), last + 1);
    EXPECT_EQ(shapeFrom(plix::CursorShape::iBeam), Qt::IBeamCursor);
    EXPECT_EQ(shapeFrom(plix::CursorShape::resizeDiagonalDown), Qt::SizeFDiagCursor);
}

}
}
