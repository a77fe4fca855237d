#include <plix/platform/foundation/NSUserDefaults.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSProcessInfo.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/foundation/locale_values.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/property_list.h>
#include <plix/platform/foundation/surroundings.h>

namespace plix {

namespace {

constexpr NSTimeInterval saveDelay = 0.5;

struct Standard {
    Ref<NSUserDefaults> defaults;
    std::uint64_t surroundingsCount { 0 };
};

Standard& standard()
{
    static auto& s_standard = *new Standard;
    return s_standard;
}

template <std::size_t Count> ObjectValue arrayOf(std::array<std::string, Count> const& names)
{
    return ObjectValue(ObjectValue::Array(names.begin(), names.end()));
}

/// Nil for a key that is no locale's, without asking the locale.
ObjectValue localeValue(std::string_view key)
{
    using Reader = ObjectValue (*)(LocaleValues const&);
    static constexpr std::pair<std::string_view, Reader> readers[] = {
        { NSDecimalSeparator, [](LocaleValues const& values) { return ObjectValue(values.decimalSeparator); } },
        { NSThousandsSeparator, [](LocaleValues const& values) { return ObjectValue(values.thousandsSeparator); } },
        { NSCurrencySymbol, [](LocaleValues const& values) { return ObjectValue(values.currencySymbol); } },
        { NSMonthNameArray, [](LocaleValues const& values) { return arrayOf(values.dates.months); } },
        { NSShortMonthNameArray, [](LocaleValues const& values) { return arrayOf(values.dates.shortMonths); } },
        { NSWeekDayNameArray, [](LocaleValues const& values) { return arrayOf(values.dates.weekdays); } },
        { NSShortWeekDayNameArray, [](LocaleValues const& values) { return arrayOf(values.dates.shortWeekdays); } },
        { NSAMPMDesignation, [](LocaleValues const& values) { return arrayOf(values.dates.amPm); } },
        { NSDateFormatString, [](LocaleValues const& values) { return ObjectValue(values.dates.dateFormat); } },
        { NSTimeFormatString, [](LocaleValues const& values) { return ObjectValue(values.dates.timeFormat); } },
        { NSShortDateFormatString, [](LocaleValues const& values) { return ObjectValue(values.dates.shortDateFormat); } },
    };
    for (auto const& [name, reader] : readers) {
        if (name == key)
            return reader(localeValues());
    }
    return nullptr;
}

template <std::size_t Count> void takeNames(NSUserDefaults const& defaults, char const* key, std::array<std::string, Count>& names)
{
    auto const set = defaults.stringArrayForKey(key);
    if (set && set->size() == Count)
        std::copy(set->begin(), set->end(), names.begin());
}

DateNames dateNames(NSUserDefaults const& defaults)
{
    auto names = localeValues().dates;
    takeNames(defaults, NSMonthNameArray, names.months);
    takeNames(defaults, NSShortMonthNameArray, names.shortMonths);
    takeNames(defaults, NSWeekDayNameArray, names.weekdays);
    takeNames(defaults, NSShortWeekDayNameArray, names.shortWeekdays);
    takeNames(defaults, NSAMPMDesignation, names.amPm);
    names.dateFormat = defaults.stringForKey(NSDateFormatString).value_or(names.dateFormat);
    names.timeFormat = defaults.stringForKey(NSTimeFormatString).value_or(names.timeFormat);
    names.shortDateFormat = defaults.stringForKey(NSShortDateFormatString).value_or(names.shortDateFormat);
    return names;
}

ObjectValue const* find(ObjectValue::Dictionary const& domain, std::string const& key)
{
    auto const found = domain.find(key);
    return found == domain.end() ? nullptr : &found->second;
}

}

PLIX_DESCRIBE(NSUserDefaults)
{
}

NSUserDefaults& NSUserDefaults::standardUserDefaults()
{
    auto& shared = standard();
    if (!shared.defaults || shared.surroundingsCount != surroundingsInstallCount()) {
        shared.surroundingsCount = surroundingsInstallCount();
        shared.defaults = make<NSUserDefaults>();
    }
    return *shared.defaults;
}

void NSUserDefaults::resetStandardUserDefaults()
{
    if (standard().defaults)
        standard().defaults->synchronize();
    standard().defaults = nullptr;
}

bool NSUserDefaults::init()
{
    if (!init(NSProcessInfo::processInfo().processName()))
        return false;
    m_arguments = defaultsFromArguments(NSProcessInfo::processInfo().arguments());
    return true;
}

bool NSUserDefaults::init(std::string applicationName)
{
    if (!Base::init())
        return false;
    auto const folder = surroundings().configFolder();
    auto const name = lastPathComponent(applicationName);
    bool const isUsable = !name.empty() && name != "/" && name != "." && name != "..";
    auto const application = stringByAppendingPathComponent(folder, isUsable ? name : "unnamed");
    m_application = DefaultsFile(stringByAppendingPathComponent(application, "defaults.plist"));
    m_global = DefaultsFile(stringByAppendingPathComponent(folder, "plix/global.plist"));
    return true;
}

NSUserDefaults::NSUserDefaults() = default;

NSUserDefaults::~NSUserDefaults()
{
    if (m_timer)
        m_timer->invalidate();
}

ObjectValue NSUserDefaults::objectForKey(std::string const& key) const
{
    for (auto const* domain : { &m_arguments, &m_application.values(), &m_global.values() }) {
        if (auto const* value = find(*domain, key))
            return *value;
    }
    if (auto value = localeValue(key))
        return value;
    auto const* registered = find(m_registered, key);
    return registered ? *registered : ObjectValue();
}

std::optional<std::string> NSUserDefaults::stringForKey(std::string const& key) const
{
    auto const value = objectForKey(key);
    return value.isString() || value.isNumber() ? std::optional(value.description()) : std::nullopt;
}

std::optional<ObjectValue::Array> NSUserDefaults::arrayForKey(std::string const& key) const
{
    auto const value = objectForKey(key);
    return value.isArray() ? std::optional(*value.array()) : std::nullopt;
}

std::optional<ObjectValue::Dictionary> NSUserDefaults::dictionaryForKey(std::string const& key) const
{
    auto const value = objectForKey(key);
    return value.isDictionary() ? std::optional(*value.dictionary()) : std::nullopt;
}

std::optional<std::vector<std::string>> NSUserDefaults::stringArrayForKey(std::string const& key) const
{
    auto const value = objectForKey(key);
    if (!value.isArray())
        return {};
    std::vector<std::string> strings;
    for (auto const& item : *value.array()) {
        if (!item.isString())
            return {};
        strings.push_back(*item.string());
    }
    return strings;
}

Ref<NSData> NSUserDefaults::dataForKey(std::string const& key) const
{
    return objectForKey(key).as<NSData>();
}

void NSUserDefaults::set(DefaultsFile& file, ObjectValue value, std::string const& key)
{
    if (!value.isNil() && !xmlFromPropertyList(value)) {
        NSLog("NSUserDefaults: the value for \"" + key + "\" is no property list and is not set");
        return;
    }
    if (!file.set(key, std::move(value)))
        return;
    scheduleSynchronize();
    noteChange();
}

void NSUserDefaults::setObject(ObjectValue value, std::string const& key)
{
    set(m_application, std::move(value), key);
}

void NSUserDefaults::setGlobalObject(ObjectValue value, std::string const& key)
{
    set(m_global, std::move(value), key);
}

void NSUserDefaults::registerDefaults(ObjectValue::Dictionary const& defaults)
{
    for (auto const& [key, value] : defaults)
        m_registered.insert_or_assign(key, value);
    ++m_changeCount;
}

ObjectValue::Dictionary NSUserDefaults::volatileDomainForName(std::string_view name) const
{
    return name == NSArgumentDomain ? m_arguments : name == NSRegistrationDomain ? m_registered : ObjectValue::Dictionary {};
}

void NSUserDefaults::setVolatileDomain(ObjectValue::Dictionary domain, std::string_view name)
{
    if (name == NSArgumentDomain)
        m_arguments = std::move(domain);
    else if (name == NSRegistrationDomain)
        m_registered = std::move(domain);
    ++m_changeCount;
}

ObjectValue::Dictionary NSUserDefaults::dictionaryRepresentation() const
{
    auto all = m_arguments;
    for (auto const* domain : { &m_application.values(), &m_global.values(), &m_registered })
        all.insert(domain->begin(), domain->end());
    return all;
}

void NSUserDefaults::noteChange()
{
    ++m_changeCount;
    NSNotificationCenter::defaultCenter().postNotificationName(NSUserDefaultsDidChangeNotification, Ref<NSObject>(this));
}

void NSUserDefaults::scheduleSynchronize()
{
    if (m_timer && m_timer->isValid())
        return;
    m_timer = NSTimer::timerWithTimeInterval(
        saveDelay,
        [weak = Weak<NSUserDefaults>(*this)](NSTimer&) {
            if (auto const defaults = weak.ref())
                defaults->synchronize();
        },
        false);
    NSRunLoop::currentRunLoop().addTimer(*m_timer, NSRunLoopCommonModes);
}

bool NSUserDefaults::synchronize()
{
    Ref<NSUserDefaults> const protector(this);
    bool isApplicationChanged = false, isGlobalChanged = false;
    bool const isApplicationSaved = m_application.synchronize(isApplicationChanged);
    bool const isGlobalSaved = m_global.synchronize(isGlobalChanged);
    if (m_timer)
        m_timer->invalidate();
    if (isApplicationChanged || isGlobalChanged)
        noteChange();
    return isApplicationSaved && isGlobalSaved;
}

ObjectValue::Dictionary defaultsFromArguments(std::vector<std::string> const& arguments)
{
    auto const isKey = [](std::string const& argument) {
        return argument.size() > 1 && argument[0] == '-' && argument[1] != '-' && argument[1] != '.'
            && !(argument[1] >= '0' && argument[1] <= '9');
    };
    ObjectValue::Dictionary domain;
    for (std::size_t i = 1; i + 1 < arguments.size(); ++i) {
        if (!isKey(arguments[i]) || isKey(arguments[i + 1]) || arguments[i + 1].starts_with("--"))
            continue;
        domain.insert_or_assign(arguments[i].substr(1), arguments[i + 1]);
        ++i;
    }
    return domain;
}

std::shared_ptr<DateNames const> currentDateNames()
{
    struct Known {
        std::uint64_t defaultsNumber { 0 };
        std::uint64_t changeCount { 0 };
        LocaleValues const* locale { nullptr };
        std::shared_ptr<DateNames const> names;
    };
    static auto& s_known = *new Known;
    auto const& defaults = NSUserDefaults::standardUserDefaults();
    auto const* const locale = &localeValues();
    if (s_known.defaultsNumber != defaults.serialNumber() || s_known.changeCount != defaults.changeCount()
        || s_known.locale != locale)
        s_known
            = { defaults.serialNumber(), defaults.changeCount(), locale, std::make_shared<DateNames const>(dateNames(defaults)) };
    return s_known.names;
}

}
