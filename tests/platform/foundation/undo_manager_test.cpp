#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSUndoManager.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

/// A number whose changes can be taken back.
class Counter : public NSObject {
public:
    bool init(NSUndoManager& undoManager)
    {
        m_undoManager = &undoManager;
        return true;
    }
    void setValue(int value)
    {
        m_undoManager->registerUndoWithTarget<Counter>(*this, [old = m_value](Counter& counter) { counter.setValue(old); });
        m_value = value;
    }
    int value() const { return m_value; }

private:
    NSUndoManager* m_undoManager { nullptr };
    int m_value { 0 };
};

class NSUndoManagerTest : public testing::Test {
protected:
    void change(int value)
    {
        manager->beginUndoGrouping();
        counter->setValue(value);
        manager->endUndoGrouping();
    }

    Ref<NSUndoManager> manager = make<NSUndoManager>();
    Ref<Counter> counter = make<Counter>(*manager);
};

TEST_F(NSUndoManagerTest, UndoesAndRedoesInTurn)
{
    change(1);
    change(2);
    manager->undo();
    EXPECT_EQ(counter->value(), 1);
    manager->undo();
    EXPECT_EQ(counter->value(), 0);
    EXPECT_FALSE(manager->canUndo());
    manager->undo();
    EXPECT_EQ(counter->value(), 0);
    manager->redo();
    manager->redo();
    EXPECT_EQ(counter->value(), 2);
    EXPECT_FALSE(manager->canRedo());
}

TEST_F(NSUndoManagerTest, AGroupIsUndoneWholeFromItsEnd)
{
    std::vector<int> order;
    manager->beginUndoGrouping();
    for (int i = 0; i < 3; ++i)
        manager->registerUndoWithTarget<Counter>(*counter, [&order, i](Counter&) { order.push_back(i); });
    manager->endUndoGrouping();
    manager->undo();
    EXPECT_EQ(order, (std::vector<int> { 2, 1, 0 }));
}

TEST_F(NSUndoManagerTest, NestedGroupsBelongToTheOuterOne)
{
    manager->beginUndoGrouping();
    counter->setValue(1);
    manager->beginUndoGrouping();
    counter->setValue(2);
    EXPECT_EQ(manager->groupingLevel(), 2);
    manager->undo(); // not in a nested group
    EXPECT_EQ(counter->value(), 2);
    manager->endUndoGrouping();
    manager->undo(); // closes the outermost one itself
    EXPECT_EQ(counter->value(), 0);
    EXPECT_EQ(manager->groupingLevel(), 0);
}

TEST_F(NSUndoManagerTest, ANewChangeForgetsWhatCouldBeRedone)
{
    change(1);
    manager->undo();
    EXPECT_TRUE(manager->canRedo());
    change(5);
    EXPECT_FALSE(manager->canRedo());
}

TEST_F(NSUndoManagerTest, ChangesOfOneEventAreOneGroup)
{
    counter->setValue(1);
    counter->setValue(2);
    EXPECT_EQ(manager->groupingLevel(), 1);
    NSRunLoop::currentRunLoop().runMode(NSDefaultRunLoopMode, NSDate::distantPast());
    EXPECT_EQ(manager->groupingLevel(), 0);
    counter->setValue(3);
    manager->undo();
    EXPECT_EQ(counter->value(), 2);
    manager->undo();
    EXPECT_EQ(counter->value(), 0);
}

TEST_F(NSUndoManagerTest, WithoutGroupsByEventNothingIsRegisteredOutsideAGroup)
{
    manager->setGroupsByEvent(false);
    counter->setValue(1);
    EXPECT_FALSE(manager->canUndo());
}

TEST_F(NSUndoManagerTest, DisabledRegistrationNests)
{
    manager->disableUndoRegistration();
    manager->disableUndoRegistration();
    manager->enableUndoRegistration();
    change(1);
    EXPECT_FALSE(manager->canUndo());
    manager->enableUndoRegistration();
    change(2);
    EXPECT_TRUE(manager->canUndo());
}

TEST_F(NSUndoManagerTest, TargetsAreNotKeptAlive)
{
    change(1);
    auto const other = make<Counter>(*manager);
    manager->beginUndoGrouping();
    other->setValue(7);
    manager->endUndoGrouping();
    counter = nullptr;
    manager->undo();
    EXPECT_EQ(other->value(), 0);
    EXPECT_FALSE(manager->canUndo());
    manager->undo();
    EXPECT_TRUE(manager->canRedo());
}

TEST_F(NSUndoManagerTest, ActionsOfATargetCanBeForgotten)
{
    change(1);
    manager->removeAllActionsWithTarget(*counter);
    EXPECT_FALSE(manager->canUndo());
    change(2);
    manager->removeAllActions();
    EXPECT_FALSE(manager->canUndo());
}

TEST_F(NSUndoManagerTest, KeepsOnlySoManyLevels)
{
    manager->setLevelsOfUndo(2);
    for (int i = 1; i <= 5; ++i)
        change(i);
    manager->undo();
    manager->undo();
    manager->undo();
    EXPECT_EQ(counter->value(), 3);
}

TEST_F(NSUndoManagerTest, NamesFollowTheirGroup)
{
    EXPECT_EQ(manager->undoMenuItemTitle(), "Undo");
    change(1);
    manager->setActionName("Typing");
    change(2);
    EXPECT_EQ(manager->undoMenuItemTitle(), "Undo");
    manager->undo();
    EXPECT_EQ(manager->undoMenuItemTitle(), "Undo Typing");
    manager->undo();
    EXPECT_EQ(manager->redoMenuItemTitle(), "Redo Typing");
}

TEST_F(NSUndoManagerTest, AnEmptyGroupIsDropped)
{
    manager->beginUndoGrouping();
    manager->endUndoGrouping();
    EXPECT_FALSE(manager->canUndo());
    manager->endUndoGrouping();
    EXPECT_EQ(manager->groupingLevel(), 0);
}

TEST_F(NSUndoManagerTest, TellsOfEachStep)
{
    std::vector<std::string> names;
    auto const token = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const& notification) { names.push_back(notification.name); }, std::nullopt, manager.get());
    change(1);
    manager->undo();
    EXPECT_EQ(names,
        (std::vector<std::string> { NSUndoManagerDidOpenUndoGroupNotification, NSUndoManagerWillCloseUndoGroupNotification,
            NSUndoManagerWillUndoChangeNotification, NSUndoManagerDidOpenUndoGroupNotification,
            NSUndoManagerWillCloseUndoGroupNotification, NSUndoManagerDidUndoChangeNotification }));
}

}
}
