#pragma once

#include "folder_entry.h"
#include "list_plan.h"

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/ScrollHeader.h>

#include <functional>
#include <optional>
#include <vector>

namespace plix {

class NSTextFieldCell;

}

namespace browser {

class ListHeaderView;

/// The entries of a folder as rows with a name and a size, one of them selected. Draws only the rows that are seen. Lies in a
/// scroll view, which it brings a header for.
class ListView : public plix::NSView, public plix::ScrollHeader {
    PLIX_CLASS(ListView, plix::NSView);

public:
    struct Actions {
        std::function<void(long row)> open; ///< Return, a double click
        std::function<void()> leave; ///< to the folder above
        std::function<void()> select; ///< another row is selected now, or none
    };

    ListView();
    ~ListView() override;
    bool init(plix::Rect frame);

    /// The entries are the caller's, and stay as they are until the next call. Nothing is selected afterwards.
    void setEntries(std::vector<FolderEntry> const* entries);
    void setActions(Actions actions) { m_actions = std::move(actions); }
    /// A line in the middle of the list in the entries' place.
    void setMessage(std::string message);
    std::string const& message() const { return m_message; }

    std::optional<long> selectedRow() const { return m_selection; }
    /// Scrolls to the row. One that is not there selects nothing.
    void selectRow(std::optional<long> row);
    ListPlan plan() const;

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;
    bool acceptsFirstResponder() const override { return true; }
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    bool acceptsFirstMouse(plix::NSEvent*) override { return true; }
    void mouseDown(plix::NSEvent&) override;
    void keyDown(plix::NSEvent&) override;
    void resizeWithOldSuperviewSize(plix::Size) override;
    void setFrameSize(plix::Size) override;

    // ScrollHeader:
    NSView* headerView() const override;
    NSView* cornerView() const override;

private:
    void drawRow(long row, plix::Rect);
    void drawMessage();
    void fitHeight();
    void changeSelection(std::optional<long> row);
    void markRow(std::optional<long> row);
    void moveSelection(ListMove);
    void open(std::optional<long> row);
    void typeSelect(std::string_view letters, double time);
    void trackSelection(plix::NSEvent& press);
    bool handleCommandKey(plix::NSEvent&);

    std::vector<FolderEntry> const* m_entries { nullptr };
    Actions m_actions;
    std::string m_message;
    std::optional<long> m_selection;
    TypeSelect m_typeSelect;
    plix::Ref<plix::NSTextFieldCell> m_nameCell;
    plix::Ref<plix::NSTextFieldCell> m_sizeCell;
    plix::Ref<ListHeaderView> m_header;
    plix::Ref<ListHeaderView> m_corner;
};

}
