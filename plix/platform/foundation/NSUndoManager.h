#pragma once

#include <plix/platform/base/Class.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// Records how to take changes back, in groups that are undone whole. While a group is undone, what is registered becomes the way
/// to redo it. Targets are not kept alive: actions of a target that is gone are passed over, and a group with nothing left to do
/// counts as none.
class PLIX_EXPORT NSUndoManager : public NSObject {
    PLIX_CLASS(NSUndoManager, NSObject);

public:
    NSUndoManager();
    ~NSUndoManager() override;
    bool init() { return true; }

    /// Registers what takes the change back. Nothing while registration is disabled. Clears the redo stack, unless it undoes or
    /// redoes. Without an open group, and where groups are not made by event, does nothing.
    template <typename T> void registerUndoWithTarget(T& target, std::function<void(T&)> undo)
    {
        registerUndo(target, [&target, undo = std::move(undo)] { undo(target); });
    }
    void removeAllActions();
    void removeAllActionsWithTarget(NSObject const& target);

    // Changes between the two are undone together; groups may lie within groups.
    void beginUndoGrouping();
    /// Does nothing without an open group. An empty group is dropped.
    void endUndoGrouping();
    long groupingLevel() const { return static_cast<long>(m_open.size()); }
    /// Groups open by themselves at the first registration and close before the run loop waits again. True at first.
    bool groupsByEvent() const { return m_groupsByEvent; }
    void setGroupsByEvent(bool groups) { m_groupsByEvent = groups; }

    // While it is disabled nothing is registered; the calls are counted.
    void disableUndoRegistration() { ++m_disabled; }
    void enableUndoRegistration();
    bool isUndoRegistrationEnabled() const { return m_disabled == 0; }

    /// How many groups are kept, the oldest dropped first; 0 for no limit, the default.
    long levelsOfUndo() const { return m_levels; }
    void setLevelsOfUndo(long levels);

    /// Closes an open group of the outermost level first. Does nothing in a nested one, or where there is nothing to undo.
    void undo();
    void redo();
    bool canUndo() const;
    bool canRedo() const;
    bool isUndoing() const { return m_state == State::undoing; }
    bool isRedoing() const { return m_state == State::redoing; }

    /// Names the change of the open group, or of the latest one.
    void setActionName(std::string_view name);
    /// Empty where there is none.
    std::string undoActionName() const;
    std::string redoActionName() const;
    /// "Undo", or "Undo" and the action's name.
    std::string undoMenuItemTitle() const;
    std::string redoMenuItemTitle() const;

private:
    struct Action {
        Weak<NSObject> target;
        std::function<void()> perform;
    };
    struct Group {
        std::vector<Action> actions;
        std::string name;
        bool canPerform() const;
    };
    enum class State { recording, undoing, redoing };

    void registerUndo(NSObject& target, std::function<void()> undo);
    void openGroupOfEvent();
    void perform(State, std::vector<Group>& stack);
    void post(char const* name);
    static void dropDead(std::vector<Group>& stack);

    std::vector<Group> m_undo;
    std::vector<Group> m_redo;
    std::vector<Group> m_open;
    Ref<NSObject> m_endOfEvent;
    State m_state { State::recording };
    long m_levels { 0 };
    int m_disabled { 0 };
    bool m_groupsByEvent { true };
    bool m_hasGroupOfEvent { false };
};

// Posted with the undo manager as object.
inline constexpr char const* NSUndoManagerDidOpenUndoGroupNotification = "NSUndoManagerDidOpenUndoGroupNotification";
inline constexpr char const* NSUndoManagerWillCloseUndoGroupNotification = "NSUndoManagerWillCloseUndoGroupNotification";
inline constexpr char const* NSUndoManagerWillUndoChangeNotification = "NSUndoManagerWillUndoChangeNotification";
inline constexpr char const* NSUndoManagerDidUndoChangeNotification = "NSUndoManagerDidUndoChangeNotification";
inline constexpr char const* NSUndoManagerWillRedoChangeNotification = "NSUndoManagerWillRedoChangeNotification";
inline constexpr char const* NSUndoManagerDidRedoChangeNotification = "NSUndoManagerDidRedoChangeNotification";

}
