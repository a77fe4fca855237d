#pragma once

#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/windows/PLIXWindow.h>

#include <optional>

namespace plix {

/// A modal window that asks for a first and a last date and has no way out but OK. The two are not compared.
///
/// From system version 0x1040 on the entries are of the class "PLIXTextDatePicker" of the plug-in bundle "DatePicker", which
/// plix_add_resources() of the build package puts beside a program; before, they are text fields. Without the plug-in the panel
/// opens without entries, and OK gives the present date for both. The words are those that the main bundle has for "From", "To",
/// "OK" and "Enter Date Range".
class PLIX_EXPORT TQDateRangePanel : public PLIXWindow {
    PLIX_CLASS(TQDateRangePanel, PLIXWindow);

public:
    TQDateRangePanel();
    ~TQDateRangePanel() override;
    using PLIXWindow::init;
    /// For the present date.
    bool init();
    /// What an archive has, with the present date and without entries.
    bool init(NSCoder&);
    /// The point does not matter: run() centres the panel. Nil dates are the present one.
    bool init(Point originAt, std::optional<NSCalendarDate> fromDate, std::optional<NSCalendarDate> toDate);

    /// Nil is the present date. The entries show it with the next run().
    virtual void setFromDate(std::optional<NSCalendarDate>);
    virtual void setToDate(std::optional<NSCalendarDate>);
    NSCalendarDate const& fromDate() const { return m_fromDate; }
    NSCalendarDate const& toDate() const { return m_toDate; }
    /// The entries: date entries or text fields, nil without the plug-in.
    NSObject* fromObject() const { return m_fromObject.get(); }
    NSObject* toObject() const { return m_toObject.get(); }

    /// Shows the dates and runs the panel until OK; true then. True as well, with the dates unchanged, where another ended the run
    /// with a code that is not 0, such as abortModal() or closing the panel. False at once while this panel runs already.
    virtual bool run();
    /// Ends an edit in progress, and with it the run; where an entry refuses to end, nothing happens. What is no date becomes the
    /// present one.
    virtual void OK_Button(NSObject* sender);
    /// Does nothing.
    virtual void internationalize();

protected:
    virtual bool initInterfaceAtOrigin(Point);

private:
    void makeEntries();
    void makeTextFields();

    Ref<NSObject> m_fromObject;
    Ref<NSObject> m_toObject;
    NSCalendarDate m_fromDate;
    NSCalendarDate m_toDate;
    bool m_isRunning { false };
};

}
