#pragma once

#include "Desk.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSTextField.h>

#include <string>
#include <string_view>
#include <vector>

namespace gallery {

/// A page of rows of controls to be tried, each behind a caption, with a line below that says what happens.
class Form : public Desk {
public:
    using Desk::init;

    static constexpr float captionWidth = 110;
    /// Where the controls begin.
    static constexpr float left = 20 + captionWidth + 10;

    /// As wide as a page mostly is; sizeToRows() gives the height.
    static plix::Ref<Form> page(float width = 560);

    /// On one line, which is as high as the highest of them; each is centred on it. A caption of a high line stands at its top.
    void addRow(std::string_view caption, std::vector<plix::Ref<plix::NSView>> const& controls);
    /// Leaves a space between the row before and the next.
    void addGap();
    /// A sentence across the page.
    void addNote(std::string_view text);
    void addHeading(std::string_view text);
    /// A row of its own, from margin to margin.
    void addView(plix::Ref<plix::NSView> const&);
    /// As high as its rows, with room for the status line, if there is one. After the last.
    void sizeToRows();
    /// The line below the rows, at the bottom.
    void addStatus(std::string_view text);
    /// Nothing before there is a status line.
    void setStatus(std::string_view text);
    /// The control says what it does from now on.
    template <typename Control> plix::Ref<Control> told(plix::Ref<Control> const& control)
    {
        control->setActionFunction([this](plix::NSObject* sender) {
            auto const* acted = dynamic_cast<plix::NSControl*>(sender);
            auto const* button = dynamic_cast<plix::NSButton*>(sender);
            auto const what = button && !dynamic_cast<plix::NSPopUpButton*>(sender) ? button->title()
                : acted                                                             ? acted->stringValue()
                                                                                    : "";
            setStatus(std::string(acted ? acted->describedClass().name() : "") + ": " + what);
        });
        return control;
    }

private:
    plix::Ref<plix::NSTextField> m_status;
    float m_y { 20 };
};

}
