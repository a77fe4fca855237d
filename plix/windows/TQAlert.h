#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/base/export.h>
#include <plix/platform/graphics/Forward.h>

#include <array>
#include <string>
#include <string_view>

namespace plix {

class NSButton;
class NSImageView;
class NSWindow;
class PLIXChiseledTextField;
class PLIXWindow;

/// A panel with a statement, a longer message, an icon and up to three buttons, which waits for an answer: over all windows, or as
/// a sheet of one. It fits itself to its texts and titles. The layout is that of the interface file "Alert".
///
/// Made, run as often as wanted, and let go by its owner; the panel leaves the screen after each run.
class PLIX_EXPORT TQAlert : public NSObject {
    PLIX_CLASS(TQAlert, NSObject);

public:
    TQAlert();
    ~TQAlert() override;
    /// Nil where the interface file can't be loaded or lacks a part. An empty button title leaves that button out.
    bool init(std::string_view title, std::string_view statement, std::string_view message, Ref<NSImage> const& icon,
        std::string_view button1Title, std::string_view button2Title, std::string_view button3Title);

    /// Beeps, shows the panel in the middle of the screen and answers the tag of the button that was pressed: 1, 0 or -1 for the
    /// first, second and third. Other windows wait meanwhile. NSRunAbortedResponse where the panel was closed instead, and at once,
    /// without a beep, while this alert runs already. What an action or an observer throws comes through when the panel is gone.
    virtual int runModal();
    /// The same as a sheet of the window; all other windows wait as well. The panel is 5 points taller after each of these runs.
    /// NSRunAbortedResponse where the window was closed.
    virtual int runAsSheetForWindow(NSWindow& parent);
    /// The buttons' action: ends the run with the sender's tag.
    virtual void button(NSObject* sender);

    // The panel and its parts.
    PLIXWindow* window() const { return m_window.get(); }
    NSImageView* iconView() const { return m_iconView.get(); }
    PLIXChiseledTextField* statementField() const { return m_statementField.get(); }
    PLIXChiseledTextField* messageField() const { return m_messageField.get(); }
    /// The rightmost one, which Return presses.
    NSButton* button1() const { return m_button1.get(); }
    /// The one left of it, which Escape presses.
    NSButton* button2() const { return m_button2.get(); }
    /// The leftmost one.
    NSButton* button3() const { return m_button3.get(); }

    // Shown beside the texts.
    NSImage* icon() const;
    virtual void setIcon(Ref<NSImage> const&);
    /// The window's title.
    std::string const& title() const;
    virtual void setTitle(std::string_view);
    // The fields keep their widths and become as high as their texts, up to 1000 points; the window's top edge follows.
    std::string statement() const;
    virtual void setStatement(std::string_view);
    std::string message() const;
    virtual void setMessage(std::string_view);
    // A button keeps its right edge, also a hidden one; those to its left make room. Empty titles hide and disable it.
    std::string const& button1Title() const;
    virtual void setButton1Title(std::string_view);
    std::string const& button2Title() const;
    virtual void setButton2Title(std::string_view);
    std::string const& button3Title() const;
    virtual void setButton3Title(std::string_view);

private:
    bool isComplete() const;
    std::array<NSButton*, 3> buttons() const;
    void setButtonTitle(std::size_t index, std::string_view title);
    /// Runs it unless it runs already, and takes the panel off the screen however that ends.
    int runOnce(FunctionRef<long()> run);
    /// Answers the window's frame for the text.
    Rect fitField(PLIXChiseledTextField&, std::string_view text);

    Ref<PLIXWindow> m_window;
    Ref<NSImageView> m_iconView;
    Ref<PLIXChiseledTextField> m_statementField;
    Ref<PLIXChiseledTextField> m_messageField;
    Ref<NSButton> m_button1;
    Ref<NSButton> m_button2;
    Ref<NSButton> m_button3;
    bool m_isRunning { false };
};

}
