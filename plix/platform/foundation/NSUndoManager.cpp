#include <plix/platform/foundation/NSUndoManager.h>

#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace plix {

PLIX_DESCRIBE(NSUndoManager)
{
}

NSUndoManager::NSUndoManager() = default;

NSUndoManager::~NSUndoManager() = default;

bool NSUndoManager::Group::canPerform() const
{
    return std::any_of(actions.begin(), actions.end(), [](Action const& action) { return static_cast<bool>(action.target); });
}

void NSUndoManager::post(char const* name)
{
    NSNotificationCenter::defaultCenter().postNotificationName(name, this);
}

void NSUndoManager::registerUndo(NSObject& target, std::function<void()> undo)
{
    if (!isUndoRegistrationEnabled())
        return;
    if (m_open.empty()) {
        if (!m_groupsByEvent)
            return;
        openGroupOfEvent();
    }
    if (m_state == State::recording)
        m_redo.clear();
    m_open.back().actions.push_back({ Weak<NSObject>(target), std::move(undo) });
}

void NSUndoManager::openGroupOfEvent()
{
    beginUndoGrouping();
    m_hasGroupOfEvent = true;
    m_endOfEvent = NSRunLoop::currentRunLoop().addObserverBeforeWaiting([this] {
        Ref<NSObject> const protector(this);
        if (m_hasGroupOfEvent && groupingLevel() == 1)
            endUndoGrouping();
    });
}

void NSUndoManager::beginUndoGrouping()
{
    m_open.emplace_back();
    post(NSUndoManagerDidOpenUndoGroupNotification);
}

void NSUndoManager::endUndoGrouping()
{
    if (m_open.empty())
        return;
    Ref<NSObject> const protector(this);
    post(NSUndoManagerWillCloseUndoGroupNotification);
    auto closed = std::move(m_open.back());
    m_open.pop_back();
    if (m_open.empty()) {
        m_hasGroupOfEvent = false;
        m_endOfEvent = nullptr;
    }
    if (closed.actions.empty())
        return;
    if (!m_open.empty()) {
        auto& outer = m_open.back();
        std::move(closed.actions.begin(), closed.actions.end(), std::back_inserter(outer.actions));
        if (!closed.name.empty())
            outer.name = closed.name;
        return;
    }
    auto& stack = m_state == State::undoing ? m_redo : m_undo;
    stack.push_back(std::move(closed));
    if (m_levels > 0 && static_cast<long>(stack.size()) > m_levels)
        stack.erase(stack.begin(), stack.end() - m_levels);
}

void NSUndoManager::enableUndoRegistration()
{
    if (m_disabled > 0)
        --m_disabled;
}

void NSUndoManager::setLevelsOfUndo(long levels)
{
    m_levels = std::max(levels, 0L);
    for (auto* stack : { &m_undo, &m_redo }) {
        if (m_levels > 0 && static_cast<long>(stack->size()) > m_levels)
            stack->erase(stack->begin(), stack->end() - m_levels);
    }
}

void NSUndoManager::removeAllActions()
{
    m_undo.clear();
    m_redo.clear();
    for (auto& group : m_open)
        group.actions.clear();
}

void NSUndoManager::removeAllActionsWithTarget(NSObject const& target)
{
    for (auto* stack : { &m_undo, &m_redo, &m_open }) {
        for (auto& group : *stack)
            std::erase_if(group.actions, [&](Action const& action) { return action.target == &target; });
    }
    for (auto* stack : { &m_undo, &m_redo })
        std::erase_if(*stack, [](Group const& group) { return group.actions.empty(); });
}

void NSUndoManager::dropDead(std::vector<Group>& stack)
{
    while (!stack.empty() && !stack.back().canPerform())
        stack.pop_back();
}

void NSUndoManager::perform(State state, std::vector<Group>& stack)
{
    dropDead(stack);
    if (stack.empty() || m_state != State::recording)
        return;
    Ref<NSObject> const protector(this);
    bool const isUndo = state == State::undoing;
    post(isUndo ? NSUndoManagerWillUndoChangeNotification : NSUndoManagerWillRedoChangeNotification);
    auto const group = std::move(stack.back());
    stack.pop_back();
    m_state = state;
    beginUndoGrouping();
    for (auto action = group.actions.rbegin(); action != group.actions.rend(); ++action) {
        if (Ref<NSObject> const target = action->target.ref())
            action->perform();
    }
    if (!m_open.empty() && m_open.back().name.empty())
        m_open.back().name = group.name;
    endUndoGrouping();
    m_state = State::recording;
    post(isUndo ? NSUndoManagerDidUndoChangeNotification : NSUndoManagerDidRedoChangeNotification);
}

void NSUndoManager::undo()
{
    if (groupingLevel() == 1)
        endUndoGrouping();
    if (m_open.empty())
        perform(State::undoing, m_undo);
}

void NSUndoManager::redo()
{
    if (m_open.empty())
        perform(State::redoing, m_redo);
}

bool NSUndoManager::canUndo() const
{
    auto const canPerform = [](Group const& group) { return group.canPerform(); };
    return std::any_of(m_undo.begin(), m_undo.end(), canPerform) || std::any_of(m_open.begin(), m_open.end(), canPerform);
}

bool NSUndoManager::canRedo() const
{
    return m_open.empty() && std::any_of(m_redo.begin(), m_redo.end(), [](Group const& group) { return group.canPerform(); });
}

void NSUndoManager::setActionName(std::string_view name)
{
    if (!m_open.empty())
        m_open.back().name = name;
    else if (!m_undo.empty())
        m_undo.back().name = name;
}

std::string NSUndoManager::undoActionName() const
{
    if (!m_open.empty() && !m_open.back().actions.empty())
        return m_open.back().name;
    return m_undo.empty() ? std::string() : m_undo.back().name;
}

std::string NSUndoManager::redoActionName() const
{
    return m_redo.empty() ? std::string() : m_redo.back().name;
}

std::string NSUndoManager::undoMenuItemTitle() const
{
    auto const name = undoActionName();
    return name.empty() ? "Undo" : "Undo " + name;
}

std::string NSUndoManager::redoMenuItemTitle() const
{
    auto const name = redoActionName();
    return name.empty() ? "Redo" : "Redo " + name;
}

}
