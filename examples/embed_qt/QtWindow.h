#pragma once

#include "QtPane.h"

#include <plix/hosting.h>

#include <QtCore/QPointer>

namespace embed_qt {

class QtDisplay;

/// One of the library's windows in Qt: in a widget of the application's, or, made without one, a window of its own.
class QtWindow final : public plix::EmbeddedWindow {
public:
    QtWindow(QtDisplay&, plix::HostWindowAttributes const&);
    /// Where that widget is, as long as it is there.
    QtWindow(QtDisplay&, QtPane& widget);
    ~QtWindow() override;

    // plix::EmbeddedWindow:
    void setTitle(std::string_view) override;
    void setSizeLimits(plix::Size minimum, plix::Size maximum) override;
    void setParent(plix::HostWindow*) override;
    void setAlpha(float) override;
    void raise() override;
    void lower() override;
    void focus() override;
    void miniaturize() override;
    void deminiaturize() override;
    void zoom() override;
    bool isZoomed() const override;
    bool beginInteractiveMove() override;
    void requestAttention() override;

protected:
    void pixelsChanged(std::span<plix::PixelRect const>) override;
    void wantsPlace(plix::Rect) override;
    void visibilityChanged() override;

private:
    void attachToParent();

    QPointer<QtPane> m_pane;
    bool m_isOwnWindow { false };
};

}
