#include <plix/format/view_additions.h>

#include <plix/platform/appkit/NSView.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

class Frame : public NSView {
    PLIX_CLASS(Frame, NSView);
};
PLIX_DESCRIBE(Frame)
{
}

class OrnateFrame : public Frame {
    PLIX_CLASS(OrnateFrame, Frame);
};
PLIX_DESCRIBE(OrnateFrame)
{
}

class Unrelated : public NSView {
    PLIX_CLASS(Unrelated, NSView);
};
PLIX_DESCRIBE(Unrelated)
{
}

TEST(NextResponderOfClass, PrefersTheExactClassToANearerSubclass)
{
    auto const view = make<NSView>(Rect {});
    auto const ornate = make<OrnateFrame>(Rect {});
    auto const plain = make<Frame>(Rect {});
    auto const furthest = make<Frame>(Rect {});
    view->setNextResponder(ornate.get());
    ornate->setNextResponder(plain.get());
    plain->setNextResponder(furthest.get());
    EXPECT_EQ(nextResponderOfClass(*view, Frame::staticClass()), plain.get());
    EXPECT_EQ(nextResponderOfClass(*view, OrnateFrame::staticClass()), ornate.get());
    EXPECT_EQ(nextResponderOfClass(*view, NSView::staticClass()), ornate.get());
    EXPECT_EQ(nextResponderOfClass(*plain, Frame::staticClass()), furthest.get());
}

TEST(NextResponderOfClass, IsNeverTheViewItself)
{
    auto const view = make<Frame>(Rect {});
    EXPECT_EQ(nextResponderOfClass(*view, Frame::staticClass()), nullptr);
    auto const next = make<OrnateFrame>(Rect {});
    view->setNextResponder(next.get());
    EXPECT_EQ(nextResponderOfClass(*view, Frame::staticClass()), next.get());
    EXPECT_EQ(nextResponderOfClass(*view, Unrelated::staticClass()), nullptr);
}

}
}
