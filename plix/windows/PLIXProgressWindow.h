#pragma once

#include <plix/platform/base/Hook.h>
#include <plix/windows/PLIXWindow.h>

namespace plix {

class NSButton;
class NSImageView;
class NSProgressIndicator;
class NSTextField;
class PLIXProgressWindow;

/// What a progress window tells its delegate.
struct PLIXProgressWindowDelegate {
    /// Cancel was pressed. The window does nothing of its own then.
    Hook<void(PLIXProgressWindow&)> progressWindowCanceled;

    template <typename Host> void fillFrom(Host& host) { PLIX_FILL_HOOK(progressWindowCanceled); }
};

/// A window with the application's icon, a title, the current step, a progress indicator and a Cancel button. The layout is that of
/// the interface file "ProgressWindow".
///
/// make<PLIXProgressWindow>() answers the window of that file, off screen and ready for use; nil where the file can't be loaded.
class PLIX_EXPORT PLIXProgressWindow : public PLIXWindow {
    PLIX_CLASS(PLIXProgressWindow, PLIXWindow);

public:
    PLIXProgressWindow();
    ~PLIXProgressWindow() override;
    using PLIXWindow::init;
    /// What make<PLIXProgressWindow>() answers.
    static Ref<PLIXProgressWindow> instead();
    /// The same.
    static Ref<PLIXProgressWindow> progressWindow();

    /// Holds everything else.
    NSView* progressView() const { return m_progressView.get(); }
    NSImageView* iconView() const { return m_iconView.get(); }
    /// Indeterminate at first.
    NSProgressIndicator* progressIndicator() const { return m_progressIndicator.get(); }
    NSTextField* titleField() const { return m_titleField.get(); }
    NSTextField* stepField() const { return m_stepField.get(); }
    NSButton* cancelButton() const { return m_cancelButton.get(); }

    /// Kept alive by the window, unlike other delegates. It is told of Cancel only, and no more than that of the window's own
    /// hooks.
    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<PLIXProgressWindowDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    NSObject* delegate() const override { return m_delegate.get(); }
    void takeHooks(HookSource const&) override;

    /// The button's action.
    virtual void cancelButton(NSObject* sender);
    /// Without Cancel the window is as much narrower as the button is wide; the left edge stays. Where the interface
    /// file has no button, only the answer changes.
    bool isCancelHidden() const { return m_cancelHidden; }
    virtual void setCancelHidden(bool);

private:
    Ref<NSView> m_progressView;
    Ref<NSImageView> m_iconView;
    Ref<NSProgressIndicator> m_progressIndicator;
    Ref<NSTextField> m_titleField;
    Ref<NSTextField> m_stepField;
    Ref<NSButton> m_cancelButton;
    Ref<NSObject> m_delegate;
    PLIXProgressWindowDelegate m_hooks;
    bool m_cancelHidden { false };
};

}
