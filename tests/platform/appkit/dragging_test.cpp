#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/NSImage.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Drags a text out of itself as soon as the mouse is dragged in it.
class SourceView final : public NSView {
public:
    using NSView::init;
    std::vector<std::string> log;
    unsigned mask { NSDragOperationCopy | NSDragOperationMove };
    Ref<NSImage> image;
    bool slidesBack { false };
    Point movedTo;

    void mouseDown(NSEvent&) override { }
    void mouseDragged(NSEvent& event) override
    {
        auto& pasteboard = NSPasteboard::pasteboardWithName(NSDragPboard);
        pasteboard.declareTypes({ NSStringPboardType });
        pasteboard.setString("dragged", NSStringPboardType);
        dragImage(image.get(), { 0, 0 }, {}, event, pasteboard, *this, slidesBack);
    }
    unsigned draggingSourceOperationMaskForLocal(bool isLocal) override
    {
        EXPECT_TRUE(isLocal);
        return mask;
    }
    void draggedImageBeganAt(NSImage*, Point) override { log.emplace_back("began"); }
    void draggedImageMovedTo(NSImage*, Point point) override { movedTo = point; }
    void draggedImage(NSImage*, Point, unsigned operation) override { log.push_back("ended " + std::to_string(operation)); }
};

class TargetView final : public NSView {
public:
    using NSView::init;
    std::vector<std::string> log;
    unsigned answer { NSDragOperationCopy };
    bool performs { true };
    std::string received;
    Point location;
    NSView* source { nullptr };

    unsigned draggingEntered(NSDraggingInfo& info) override
    {
        log.emplace_back("entered");
        location = info.draggingLocation();
        source = info.draggingSource();
        return answer;
    }
    void draggingExited(NSDraggingInfo*) override { log.emplace_back("exited"); }
    bool prepareForDragOperation(NSDraggingInfo&) override
    {
        log.emplace_back("prepare");
        return true;
    }
    bool performDragOperation(NSDraggingInfo& info) override
    {
        log.emplace_back("perform");
        received = info.draggingPasteboard().stringForType(NSStringPboardType).value_or("nothing");
        return performs;
    }
    void concludeDragOperation(NSDraggingInfo*) override { log.emplace_back("conclude"); }
};

class Dragging : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow();
        source = make<SourceView>(Rect { 0, 0, 50, 50 });
        target = make<TargetView>(Rect { 200, 0, 100, 100 });
        target->registerForDraggedTypes({ NSStringPboardType });
        window->contentView()->addSubview(*source);
        window->contentView()->addSubview(*target);
    }
    void dragToTarget(ScriptedClick how = {}) { dragTo(*target, { 50, 50 }, how); }
    void dragTo(NSView const& view, Point point, ScriptedClick how = {})
    {
        person().press(onScreen(*source, { 10, 10 }), how);
        for (auto const to : { onScreen(*source, { 20, 20 }), onScreen(view, point) })
            person().dragTo(to, how.modifiers);
        person().release(onScreen(view, point), how);
        pump();
    }

    Ref<NSWindow> window;
    Ref<SourceView> source;
    Ref<TargetView> target;
};

TEST_F(Dragging, ADropReachesTheDestinationInOrder)
{
    dragToTarget();
    EXPECT_THAT(target->log, ElementsAre("entered", "prepare", "perform", "conclude"));
    EXPECT_EQ(target->received, "dragged");
    EXPECT_EQ(target->location, (Point { 250, 50 }));
    EXPECT_EQ(target->source, source.get());
    EXPECT_THAT(source->log, ElementsAre("began", "ended 1"));
    EXPECT_EQ(source->movedTo, (Point { 330, 230 }));
}

TEST_F(Dragging, ADestinationThatDeclinesIsLeft)
{
    target->answer = NSDragOperationLink;
    dragToTarget();
    EXPECT_THAT(target->log, ElementsAre("entered", "exited"));
    EXPECT_THAT(source->log, ElementsAre("began", "ended 0"));
    EXPECT_EQ(&NSCursor::currentCursor(), &NSCursor::arrowCursor());
}

TEST_F(Dragging, ADropThatFailsCountsAsNone)
{
    target->performs = false;
    dragToTarget();
    EXPECT_THAT(target->log, ElementsAre("entered", "prepare", "perform"));
    EXPECT_THAT(source->log, ElementsAre("began", "ended 0"));
}

TEST_F(Dragging, OnlyRegisteredTypesAreOffered)
{
    target->registerForDraggedTypes({ NSColorPboardType });
    dragToTarget();
    EXPECT_THAT(target->log, IsEmpty());
    target->unregisterDraggedTypes();
    window->registerForDraggedTypes({ NSStringPboardType });
    EXPECT_THAT(window->contentView()->registeredDraggedTypes(), ElementsAre(NSStringPboardType));
}

TEST_F(Dragging, ModifiersChooseTheOperation)
{
    target->answer = NSDragOperationEvery;
    dragToTarget();
    dragToTarget({ .modifiers = HostModifierControl });
    dragToTarget({ .modifiers = HostModifierShift | HostModifierControl });
    EXPECT_THAT(source->log, ElementsAre("began", "ended 16", "began", "ended 1", "began", "ended 0"));
}

TEST_F(Dragging, EscapeCancels)
{
    person().press(onScreen(*source, { 10, 10 }));
    person().dragTo(onScreen(*source, { 20, 20 }));
    person().dragTo(onScreen(*target, { 50, 50 }));
    person().key(NSEscapeCharacter);
    person().release(onScreen(*target, { 50, 50 }));
    pump();
    EXPECT_THAT(target->log, ElementsAre("entered", "exited"));
    EXPECT_THAT(source->log, ElementsAre("began", "ended 0"));
}

TEST_F(Dragging, DragsGoToOtherWindowsButNotToBlockedOnes)
{
    auto const other = make<NSWindow>(Rect { 700, 200, 200, 200 }, usualStyle, NSBackingStoreBuffered, true);
    other->orderFront(nullptr);
    auto const inOther = make<TargetView>(Rect { 0, 0, 200, 200 });
    inOther->registerForDraggedTypes({ NSStringPboardType });
    other->contentView()->addSubview(*inOther);
    dragTo(*inOther, { 20, 30 });
    EXPECT_THAT(inOther->log, ElementsAre("entered", "prepare", "perform", "conclude"));
    EXPECT_EQ(inOther->location, (Point { 20, 30 }));
    auto const sheet = make<NSWindow>(Rect { 0, 0, 50, 50 }, usualStyle, NSBackingStoreBuffered, true);
    app().beginSheet(*sheet, *other);
    window->makeKeyAndOrderFront(nullptr);
    inOther->log.clear();
    dragTo(*inOther, { 20, 30 });
    EXPECT_THAT(inOther->log, IsEmpty());
}

TEST_F(Dragging, TheImageFollowsAndSlidesBack)
{
    source->image = make<NSImage>(Size { 16, 16 });
    source->slidesBack = true;
    target->answer = NSDragOperationNone;
    dragToTarget();
    EXPECT_THAT(source->log, ElementsAre("began", "ended 0"));
    EXPECT_EQ(app().orderedWindows().size(), 1U);
}

TEST_F(Dragging, ADestinationThatGoesAwayMeanwhileIsForgotten)
{
    person().press(onScreen(*source, { 10, 10 }));
    person().dragTo(onScreen(*source, { 20, 20 }));
    person().dragTo(onScreen(*target, { 50, 50 }));
    Weak<TargetView> const weak(target);
    person().then([&] { weak->removeFromSuperview(); });
    person().release(onScreen(*target, { 50, 50 }));
    target = nullptr;
    pump();
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_THAT(source->log, ElementsAre("began", "ended 0"));
}

// Pasteboards.

class Pasteboard : public HeadlessTest { };

TEST_F(Pasteboard, HoldsWhatWasDeclared)
{
    auto const pasteboard = NSPasteboard::pasteboardWithUniqueName();
    auto const count = pasteboard->declareTypes({ "own", NSStringPboardType });
    EXPECT_EQ(pasteboard->changeCount(), count);
    EXPECT_TRUE(pasteboard->setString("text", NSStringPboardType));
    EXPECT_FALSE(pasteboard->setString("text", "other"));
    EXPECT_TRUE(pasteboard->setPropertyList(ObjectValue::Array { 1, 2 }, "own"));
    EXPECT_EQ(pasteboard->stringForType(NSStringPboardType), "text");
    EXPECT_EQ(pasteboard->stringForType("other"), std::nullopt);
    EXPECT_EQ(pasteboard->stringForType("own"), std::nullopt);
    EXPECT_EQ(pasteboard->propertyListForType("own"), ObjectValue(ObjectValue::Array { 1, 2 }));
    EXPECT_EQ(pasteboard->availableTypeFromArray({ "other", NSStringPboardType, "own" }), NSStringPboardType);
    EXPECT_EQ(pasteboard->availableTypeFromArray({ "other" }), std::nullopt);
    EXPECT_GT(pasteboard->declareTypes({}), count);
    EXPECT_EQ(pasteboard->stringForType(NSStringPboardType), std::nullopt);
}

TEST_F(Pasteboard, ProvidersAreAskedOnceWhenNeeded)
{
    auto const pasteboard = NSPasteboard::pasteboardWithUniqueName();
    int asked = 0;
    pasteboard->declareTypes({ "a", "b" }, [&](std::string const& type) {
        ++asked;
        return ObjectValue("made " + type);
    });
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(pasteboard->stringForType("a"), "made a");
    EXPECT_EQ(pasteboard->stringForType("a"), "made a");
    EXPECT_EQ(asked, 1);
    pasteboard->addTypes({ "c" });
    EXPECT_EQ(pasteboard->stringForType("c"), "made c");
}

TEST_F(Pasteboard, TheGeneralOnesTextIsTheMachines)
{
    auto& general = NSPasteboard::generalPasteboard();
    general.declareTypes({ NSStringPboardType, "own" });
    general.setString("ours", NSStringPboardType);
    general.setString("kept", "own");
    EXPECT_EQ(machine().clipboard().text(), "ours");
    EXPECT_EQ(general.stringForType("own"), "kept");
    auto const count = general.changeCount();
    machine().clipboard().setText("theirs");
    EXPECT_GT(general.changeCount(), count);
    EXPECT_EQ(general.stringForType(NSStringPboardType), "theirs");
    EXPECT_EQ(general.stringForType("own"), std::nullopt);
    EXPECT_THAT(general.types(), ElementsAre(NSStringPboardType));
}

TEST_F(Pasteboard, TextFromAProviderIsThereForOthersAtOnce)
{
    NSPasteboard::generalPasteboard().declareTypes({ NSStringPboardType }, [](std::string const&) { return ObjectValue("made"); });
    EXPECT_EQ(machine().clipboard().text(), "made");
}

TEST_F(Pasteboard, NamedOnesAreSharedAndKeptApart)
{
    EXPECT_EQ(&NSPasteboard::pasteboardWithName(NSFindPboard), &NSPasteboard::pasteboardWithName(NSFindPboard));
    EXPECT_NE(&NSPasteboard::pasteboardWithName(NSFindPboard), &NSPasteboard::generalPasteboard());
}

}
}
