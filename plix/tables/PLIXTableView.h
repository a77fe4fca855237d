#pragma once

#include <plix/platform/appkit/NSTableView.h>
#include <plix/tables/PLIXTableViewDataSource.h>
#include <plix/tables/PLIXTableViewDelegate.h>
#include <plix/tables/StyledTable.h>
#include <plix/tables/table_shadows.h>

#include <optional>
#include <string>

namespace plix {

class NSAttributedString;

extern template class PLIX_EXPORT StyledTable<NSTableView>;

/// A table with the library's looks and keys, which StyledTable describes, and a message in its middle while it has no rows.
class PLIX_EXPORT PLIXTableView : public StyledTable<NSTableView> {
    PLIX_CLASS(PLIXTableView, StyledTable<NSTableView>);

public:
    PLIXTableView();
    ~PLIXTableView() override;

    /// The shadow of text in selected rows, and a paler one; made when they are first asked for.
    static Ref<NSShadow> standardShadow() { return standardTableShadow(); }
    static Ref<NSShadow> deactivatedShadow() { return deactivatedTableShadow(); }

    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSTableViewDelegate, NSControlTextEditingDelegate, PLIXTableViewDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    template <typename T> void setDataSource(Ref<T> const& source)
    {
        takeDataSource(HookSource::pack<NSTableViewDataSource, PLIXTableViewDataSource>(source));
    }
    void setDataSource(std::nullptr_t) { takeDataSource(HookSource {}); }
    /// Hooks without an object behind them, such as lambdas.
    void setDelegateHooks(PLIXTableViewDelegate);
    void setDataSourceHooks(PLIXTableViewDataSource);

    /// Shown while there are no rows, centred in bold grey, where it fits into what is visible. Nil for none.
    std::optional<std::string> const& emptyString() const { return m_emptyString; }
    void setEmptyString(std::optional<std::string> text) { m_emptyString = std::move(text); }
    /// Comes before emptyString(). Null for none.
    NSAttributedString* emptyAttributedString() const { return m_emptyAttributedString.get(); }
    void setEmptyAttributedString(Ref<NSAttributedString> const&);

    // NSView, NSTableView:
    void drawRect(Rect) override;
    /// Selects the row under the pointer alone, unless the data source refuses, before the menu is shown.
    void rightMouseDown(NSEvent&) override;
    void takeHooks(HookSource const&) override;
    void takeDataSource(HookSource const&) override;

protected:
    // StyledTable:
    void tellReturnKey() override;
    void tellDeleteBackward() override;
    void tellArrowKeyChangedSelection(NSNotification const&) override;
    Ref<NSImage> customHighlightImage(long row) override;
    HighlightImage dropHighlightImage(long row) override;
    void selectForMenu(long row) override;

private:
    Ref<NSAttributedString> emptyMessage() const;
    void drawEmptyMessage() const;

    PLIXTableViewDelegate m_hooks;
    PLIXTableViewDataSource m_dataHooks;
    std::optional<std::string> m_emptyString;
    Ref<NSAttributedString> m_emptyAttributedString;
};

}
