#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/foundation/defaults_file.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class NSData;
class NSTimer;

// Domains, in the order in which they are looked through, with the application's own behind the first.
inline constexpr std::string_view NSArgumentDomain = "NSArgumentDomain";
inline constexpr std::string_view NSGlobalDomain = "NSGlobalDomain";
inline constexpr std::string_view NSRegistrationDomain = "NSRegistrationDomain";
/// Posted by the defaults when a value was set, or another process's were taken over.
inline constexpr auto NSUserDefaultsDidChangeNotification = "NSUserDefaultsDidChangeNotification";

// Keys that come from the locale when nobody sets them:
inline constexpr auto NSDecimalSeparator = "NSDecimalSeparator";
inline constexpr auto NSThousandsSeparator = "NSThousandsSeparator";
inline constexpr auto NSCurrencySymbol = "NSCurrencySymbol";
inline constexpr auto NSMonthNameArray = "NSMonthNameArray";
inline constexpr auto NSShortMonthNameArray = "NSShortMonthNameArray";
inline constexpr auto NSWeekDayNameArray = "NSWeekDayNameArray";
inline constexpr auto NSShortWeekDayNameArray = "NSShortWeekDayNameArray";
inline constexpr auto NSAMPMDesignation = "NSAMPMDesignation";
inline constexpr auto NSDateFormatString = "NSDateFormatString";
inline constexpr auto NSTimeFormatString = "NSTimeFormatString";
inline constexpr auto NSShortDateFormatString = "NSShortDateFormatString";

/// The user's settings. A key is looked for in the arguments ("-key value" on the command line), in the application's own settings,
/// in those of all applications (global), in the locale, and in what the application registered; the first that has it counts.
///
/// The application's settings are `<name>/defaults.plist` in the configuration folder, the global ones `plix/global.plist`. Values
/// that were set are saved a moment later by the run loop, or by synchronize(); a program without a run loop calls it before it
/// ends.
class PLIX_EXPORT NSUserDefaults : public NSObject {
    PLIX_CLASS(NSUserDefaults, NSObject);

public:
    /// Made on first use, and anew after other surroundings were installed.
    static NSUserDefaults& standardUserDefaults();
    static void resetStandardUserDefaults();

    /// Of this process.
    bool init();
    /// Of the application of that name.
    bool init(std::string applicationName);
    NSUserDefaults();
    ~NSUserDefaults() override;

    /// Nil where no domain has it.
    ObjectValue objectForKey(std::string const& key) const;
    /// The text of a string or number; nil for anything else.
    std::optional<std::string> stringForKey(std::string const& key) const;
    /// Of a number, or of what a string begins with; false or 0 otherwise.
    bool boolForKey(std::string const& key) const { return objectForKey(key).boolValue(); }
    int integerForKey(std::string const& key) const { return objectForKey(key).intValue(); }
    float floatForKey(std::string const& key) const { return objectForKey(key).floatValue(); }
    double doubleForKey(std::string const& key) const { return objectForKey(key).doubleValue(); }
    /// nullopt where the value is nothing of the kind.
    std::optional<ObjectValue::Array> arrayForKey(std::string const& key) const;
    std::optional<ObjectValue::Dictionary> dictionaryForKey(std::string const& key) const;
    std::optional<std::vector<std::string>> stringArrayForKey(std::string const& key) const;
    Ref<NSData> dataForKey(std::string const& key) const;

    /// Sets in the application's domain; nil removes. What no property list can hold is refused with a line in the log.
    void setObject(ObjectValue value, std::string const& key);
    void setBool(bool value, std::string const& key) { setObject(value, key); }
    void setInteger(int value, std::string const& key) { setObject(value, key); }
    void setFloat(float value, std::string const& key) { setObject(value, key); }
    void removeObjectForKey(std::string const& key) { setObject(nullptr, key); }
    /// Sets in the domain of all applications.
    void setGlobalObject(ObjectValue value, std::string const& key);
    /// Adds to what counts when nothing else does.
    void registerDefaults(ObjectValue::Dictionary const&);
    /// The arguments or what was registered.
    ObjectValue::Dictionary volatileDomainForName(std::string_view name) const;
    void setVolatileDomain(ObjectValue::Dictionary, std::string_view name);
    /// All keys but the locale's.
    ObjectValue::Dictionary dictionaryRepresentation() const;

    /// Saves what was set and takes over what other processes have set. False where it could not be saved; that is
    /// tried again with the next change.
    bool synchronize();

    /// Grows with every change.
    std::uint64_t changeCount() const { return m_changeCount; }

private:
    void set(DefaultsFile&, ObjectValue value, std::string const& key);
    void noteChange();
    void scheduleSynchronize();

    mutable DefaultsFile m_application;
    mutable DefaultsFile m_global;
    ObjectValue::Dictionary m_arguments;
    ObjectValue::Dictionary m_registered;
    Ref<NSTimer> m_timer;
    std::uint64_t m_changeCount { 0 };
};

/// The pairs "-key value" of a command line, its first entry left out. A key without a value, or with another key behind it, and
/// what begins with two dashes, is none; a negative number is a value.
PLIX_EXPORT ObjectValue::Dictionary defaultsFromArguments(std::vector<std::string> const& arguments);

}
