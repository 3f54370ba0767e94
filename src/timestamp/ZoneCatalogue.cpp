#include "timestamp/ZoneCatalogue.h"

#include "common/ICUTimeZone.h"
#include "common/WhiteSpace.h"
#include "timestamp/Digits.h"
#include "timestamp/ZoneAbbreviations.h"

#include <unicode/locdspnm.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/timezone.h>
#include <unicode/tznames.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tarnquill::Timestamp {

namespace {

constexpr std::string_view kUTC = "UTC";

// Zones that ICU keeps under their former names, for the sake of data that holds them.
constexpr std::array<std::pair<std::string_view, std::string_view>, 17> kRenamedZones{{
    {"Africa/Asmera", "Africa/Asmara"},
    {"America/Buenos_Aires", "America/Argentina/Buenos_Aires"},
    {"America/Catamarca", "America/Argentina/Catamarca"},
    {"America/Coral_Harbour", "America/Atikokan"},
    {"America/Cordoba", "America/Argentina/Cordoba"},
    {"America/Godthab", "America/Nuuk"},
    {"America/Indianapolis", "America/Indiana/Indianapolis"},
    {"America/Jujuy", "America/Argentina/Jujuy"},
    {"America/Louisville", "America/Kentucky/Louisville"},
    {"America/Mendoza", "America/Argentina/Mendoza"},
    {"Asia/Calcutta", "Asia/Kolkata"},
    {"Asia/Katmandu", "Asia/Kathmandu"},
    {"Asia/Rangoon", "Asia/Yangon"},
    {"Asia/Saigon", "Asia/Ho_Chi_Minh"},
    {"Atlantic/Faeroe", "Atlantic/Faroe"},
    {"Europe/Kiev", "Europe/Kyiv"},
    {"Pacific/Enderbury", "Pacific/Kanton"},
}};

// Cities that ICU has in ASCII only, because its English names are made from the zones'.
constexpr std::array<std::pair<std::string_view, std::string_view>, 20> kCities{{
    {"Africa/Lome", "Lomé"},
    {"America/Araguaina", "Araguaína"},
    {"America/Argentina/Rio_Gallegos", "Río Gallegos"},
    {"America/Argentina/Tucuman", "Tucumán"},
    {"America/Belem", "Belém"},
    {"America/Bogota", "Bogotá"},
    {"America/Cancun", "Cancún"},
    {"America/Cordoba", "Córdoba"},
    {"America/Cuiaba", "Cuiabá"},
    {"America/Eirunepe", "Eirunepé"},
    {"America/Maceio", "Maceió"},
    {"America/Mazatlan", "Mazatlán"},
    {"America/Merida", "Mérida"},
    {"America/Santarem", "Santarém"},
    {"America/Sao_Paulo", "São Paulo"},
    {"Europe/Busingen", "Büsingen"},
    {"Europe/Zurich", "Zürich"},
    {"Indian/Mahe", "Mahé"},
    {"Pacific/Galapagos", "Galápagos"},
    {"Pacific/Noumea", "Nouméa"},
}};

// The second of the pair whose first is the key; empty when there is none.
template <std::size_t Size>
std::string_view lookUp(const std::array<std::pair<std::string_view, std::string_view>, Size>& table,
                        std::string_view key) {
    const auto* const found =
        std::ranges::find(table, key, &std::pair<std::string_view, std::string_view>::first);
    return found == table.end() ? std::string_view() : found->second;
}

icu::UnicodeString utf16(std::string_view text) {
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

std::string utf8(const icu::UnicodeString& text) {
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

const icu::TimeZoneNames& englishNames() {
    static const std::unique_ptr<const icu::TimeZoneNames> kNames = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<const icu::TimeZoneNames>(
            icu::TimeZoneNames::createInstance(icu::Locale::getEnglish(), status));
    }();
    return *kNames;
}

// The words of a text in lower case and without accents. Whatever is neither letter nor digit parts two
// words; only apostrophes and full stops do not: "St. John’s" is "st" and "johns".
std::vector<std::string> wordsOf(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString folded =
        icu::Normalizer2::getNFDInstance(status)->normalize(utf16(text).foldCase(), status);
    std::vector<std::string> words(1);
    for (std::int32_t i = 0; i < folded.length(); i = folded.moveIndex32(i, 1)) {
        const UChar32 character = folded.char32At(i);
        if (u_isalnum(character)) {
            icu::UnicodeString(character).toUTF8String(words.back());
        } else if (u_charType(character) != U_NON_SPACING_MARK && character != u'\'' && character != u'’' &&
                   character != u'.' && !words.back().empty()) {
            words.emplace_back();
        }
    }
    if (words.back().empty()) {
        words.pop_back();
    }
    return words;
}

// What a user asks for: words, and perhaps an offset.
struct Query {
    std::vector<std::string> words;
    std::optional<std::int32_t> offset;
};

// "+5", "-0330" or "+05:30" in seconds.
std::optional<std::int32_t> offsetOf(std::string_view text) {
    if (!text.starts_with('+') && !text.starts_with('-')) {
        return std::nullopt;
    }
    std::string digits(text.substr(1));
    std::erase(digits, ':');
    if (digits.empty() || digits.size() > 4 || !std::ranges::all_of(digits, isDigit)) {
        return std::nullopt;
    }
    const int number = std::stoi(digits);
    const int seconds = digits.size() > 2 ? number / 100 * 3'600 + number % 100 * 60 : number * 3'600;
    return text.starts_with('-') ? -seconds : seconds;
}

Query queryOf(std::string_view text) {
    Query query;
    const std::size_t sign = text.find_first_of("+-");
    if (sign != std::string_view::npos) {
        query.offset = offsetOf(trimmed(text.substr(sign)));
    }
    query.words = wordsOf(query.offset ? text.substr(0, sign) : text);
    if (query.offset) {
        std::erase_if(query.words, [](const std::string& word) { return word == "utc" || word == "gmt"; });
    }
    return query;
}

bool beginsAny(const std::string& word, const std::vector<std::string>& keywords) {
    return std::ranges::any_of(keywords,
                               [&word](const std::string& keyword) { return keyword.starts_with(word); });
}

// The country under all names that it may be looked for: "United Kingdom UK GB GBR".
std::string countryKeywords(const icu::Locale& country, const std::string& name) {
    std::array<UDisplayContext, 1> contexts{UDISPCTX_LENGTH_SHORT};
    const std::unique_ptr<const icu::LocaleDisplayNames> names(icu::LocaleDisplayNames::createInstance(
        icu::Locale::getEnglish(), contexts.data(), static_cast<std::int32_t>(contexts.size())));
    icu::UnicodeString shortName;
    names->regionDisplayName(country.getCountry(), shortName);
    return name + ' ' + utf8(shortName) + ' ' + country.getCountry() + ' ' + country.getISO3Country();
}

std::string abbreviationsOf(const icu::UnicodeString& id, std::string_view name, std::int64_t seconds) {
    icu::UnicodeString group;
    englishNames().getMetaZoneID(id, static_cast<double>(seconds) * 1'000.0, group);
    const ZoneAbbreviations* const found = findAbbreviations(name, utf8(group));
    if (!found) {
        return {};
    }
    std::string text(found->standard);
    const std::unique_ptr<const icu::TimeZone> zone(icu::TimeZone::createTimeZone(id));
    if (!found->summer.empty() && zone->useDaylightTime()) {
        text.append(", ").append(found->summer);
    }
    return text;
}

ZoneCatalogue::Zone makeZone(const icu::UnicodeString& id, std::int64_t seconds) {
    const std::string formerName = utf8(id);
    const auto renamed = lookUp(kRenamedZones, formerName);
    const std::string name(renamed.empty() ? formerName : renamed);

    std::array<char, 8> region{};
    UErrorCode status = U_ZERO_ERROR;
    icu::TimeZone::getRegion(id, region.data(), static_cast<std::int32_t>(region.size()), status);
    const icu::Locale locale("", region.data());
    icu::UnicodeString countryName;
    locale.getDisplayCountry(icu::Locale::getEnglish(), countryName);

    ZoneCatalogue::Zone zone{.name = name,
                             .city = cityName(name),
                             .country = utf8(countryName),
                             .abbreviations = abbreviationsOf(id, name, seconds),
                             .zone = ICUTimeZone::find(name),
                             .keywords = {}};
    zone.keywords = wordsOf(zone.city + ' ' + countryKeywords(locale, zone.country) + ' ' +
                            zone.abbreviations + ' ' + name + ' ' + formerName);
    return zone;
}

} // namespace

std::string cityName(const std::string& zoneName) {
    if (zoneName == kUTC) {
        return zoneName;
    }
    // ICU knows the city under the canonical name, be that the former one.
    icu::UnicodeString canonical;
    UErrorCode status = U_ZERO_ERROR;
    icu::TimeZone::getCanonicalID(utf16(zoneName), canonical, status);
    if (const auto city = lookUp(kCities, utf8(canonical)); !city.empty()) {
        return std::string(city);
    }
    icu::UnicodeString city;
    englishNames().getExemplarLocationName(canonical, city);
    return utf8(city);
}

ZoneCatalogue ZoneCatalogue::load(std::int64_t seconds) {
    ZoneCatalogue catalogue;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::StringEnumeration> ids(icu::TimeZone::createTimeZoneIDEnumeration(
        UCAL_ZONE_TYPE_CANONICAL_LOCATION, nullptr, nullptr, status));
    while (const icu::UnicodeString* const id = ids->snext(status)) {
        catalogue.m_zones.push_back(makeZone(*id, seconds));
    }
    catalogue.m_zones.push_back({.name = std::string(kUTC),
                                 .city = std::string(kUTC),
                                 .country = "Coordinated Universal Time",
                                 .abbreviations = "",
                                 .zone = ICUTimeZone::find(kUTC),
                                 .keywords = wordsOf("UTC GMT Z Zulu Coordinated Universal Time")});
    std::ranges::sort(catalogue.m_zones, {}, &Zone::keywords); // a zone's first words are its city's
    return catalogue;
}

std::vector<const ZoneCatalogue::Zone*> ZoneCatalogue::search(std::string_view query,
                                                              std::int64_t seconds) const {
    const Query wanted = queryOf(query);
    std::vector<const Zone*> found;
    for (const Zone& zone : m_zones) {
        const auto isOfZone = [&zone](const std::string& word) { return beginsAny(word, zone.keywords); };
        if (std::ranges::all_of(wanted.words, isOfZone) &&
            (!wanted.offset || zone.zone->offsetAt(seconds).seconds == *wanted.offset)) {
            found.push_back(&zone);
        }
    }
    if (!wanted.words.empty()) {
        std::ranges::stable_partition(found, [&wanted](const Zone* zone) {
            return zone->keywords.front().starts_with(wanted.words.front());
        });
    }
    return found;
}

} // namespace tarnquill::Timestamp
