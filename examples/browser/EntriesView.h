#pragma once

#include <plix/tables/PLIXTableView.h>

#include <functional>

namespace browser {

/// A table that passes on what a person does to files with keys or the menu.
class EntriesView final : public plix::PLIXTableView {
    PLIX_CLASS(EntriesView, plix::PLIXTableView);

public:
    using plix::PLIXTableView::init;

    struct Commands {
        std::function<void()> leave; ///< Alt and the up arrow, also where the folder is empty
        std::function<void()> info; ///< Control and I
        std::function<void()> total; ///< Control and T
        std::function<void()> copy;
        std::function<void()> paste;
        std::function<void()> preferences; ///< Control and comma, wherever in the window the keyboard is
    };
    void setCommands(Commands commands) { m_commands = std::move(commands); }

    void keyDown(plix::NSEvent&) override;
    bool performKeyEquivalent(plix::NSEvent&) override;

private:
    void copy(NSObject*) { m_commands.copy(); }
    void paste(NSObject*) { m_commands.paste(); }

    Commands m_commands;
};

}
