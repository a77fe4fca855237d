#pragma once

#include <plix/format/time_interval_text.h>
#include <plix/platform/foundation/NSFormatter.h>

namespace plix {

/// Shows a number of seconds as components between separators ("1:01:00:46:40" with weeks to seconds, "62:05") and reads such text
/// back. What is shown lies between a minimum and a maximum. With milliseconds the lowest component has three decimals, if it is
/// seconds; without, reading drops the fraction, through 32 bits: a total outside them gives -2147483648. One component alone is
/// shown as seconds divided by its base, not by its scalar.
class PLIX_EXPORT TQTimeIntervalFormatter : public NSFormatter {
    PLIX_CLASS(TQTimeIntervalFormatter, NSFormatter);

public:
    /// Seconds to weeks, any interval of 32 bits with a sign beside, ":" between.
    bool init();
    bool init(int minimumComponent, int maximumComponent);
    bool init(int minimumComponent, int maximumComponent, double minimumTimeInterval, double maximumTimeInterval,
        std::optional<std::string> componentSeparator, int componentStyle);

    // What is shown: components count from 0, seconds, to 4, weeks; intervals are in seconds.
    int minimumComponent() const { return m_format.minimumComponent; }
    void setMinimumComponent(int component) { m_format.minimumComponent = component; }
    int maximumComponent() const { return m_format.maximumComponent; }
    void setMaximumComponent(int component) { m_format.maximumComponent = component; }
    bool showsMilliseconds() const { return m_format.showsMilliseconds; }
    void setShowsMilliseconds(bool shows) { m_format.showsMilliseconds = shows; }
    double maximumTimeInterval() const { return m_format.maximumTimeInterval; }
    void setMaximumTimeInterval(double seconds) { m_format.maximumTimeInterval = seconds; }
    double minimumTimeInterval() const { return m_format.minimumTimeInterval; }
    void setMinimumTimeInterval(double seconds) { m_format.minimumTimeInterval = seconds; }
    /// Nil gives ":". Text with an empty separator is one component.
    std::string const& componentSeparator() const { return m_format.componentSeparator; }
    void setComponentSeparator(std::optional<std::string> separator);
    /// 0 is the clock's; any other writes "" and reads 0.
    int componentStyle() const { return m_format.componentStyle; }
    void setComponentStyle(int style) { m_format.componentStyle = style; }

    // How many components are shown, and the seconds that the text of one stands for.
    long _componentCount() const { return m_format.componentCount(); }
    double _valueForComponentString(std::string_view string, long componentType) const;

    // NSFormatter:
    /// "0" for nil and what is no number.
    std::optional<std::string> stringForObjectValue(ObjectValue const&) const override;
    /// Always gives a number; false only for nil.
    bool getObjectValue(ObjectValue&, std::optional<std::string_view> string, std::string& errorDescription) const override;

private:
    void copyStateTo(NSObject& fresh) const override;

    TimeIntervalFormat m_format;
};

}
