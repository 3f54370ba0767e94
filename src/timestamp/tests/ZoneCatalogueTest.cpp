#include "timestamp/ZoneCatalogue.h"

#include "common/ICUTimeZone.h"

#include <gmock/gmock.h>

namespace tarnquill::Timestamp {

namespace {

using testing::Contains;
using testing::Not;

constexpr std::int64_t kSummer = 1'790'380'800; // 2026-09-26
constexpr std::int64_t kWinter = 1'767'225'600; // 2026-01-01

const ZoneCatalogue& catalogue() {
    static const ZoneCatalogue kCatalogue = ZoneCatalogue::load(kSummer);
    return kCatalogue;
}

std::vector<std::string> found(std::string_view query, std::int64_t seconds = kSummer) {
    std::vector<std::string> names;
    for (const auto* const zone : catalogue().search(query, seconds)) {
        names.push_back(zone->name);
    }
    return names;
}

} // namespace

TEST(ZoneCatalogue, NamesEveryZoneByACityAndACountry) {
    EXPECT_GT(catalogue().zones().size(), 400U);
    for (const auto& zone : catalogue().zones()) {
        EXPECT_FALSE(zone.city.empty()) << zone.name;
        EXPECT_FALSE(zone.country.empty()) << zone.name;
        EXPECT_TRUE(ICUTimeZone::find(zone.name)) << zone.name;
    }
}

TEST(ZoneCatalogue, FindsAZoneByCityWithoutItsAccents) {
    EXPECT_EQ(found("sao paulo"), std::vector<std::string>{"America/Sao_Paulo"});
    EXPECT_EQ(found("São Pau"), std::vector<std::string>{"America/Sao_Paulo"});
    EXPECT_EQ(found("ST. JOHN'S"), std::vector<std::string>{"America/St_Johns"});
    EXPECT_EQ(found("new_york"), std::vector<std::string>{"America/New_York"});
}

TEST(ZoneCatalogue, FindsAZoneByCountryAndItsShortNames) {
    for (const auto* const country : {"United Kingdom", "uk", "GBR"}) {
        EXPECT_THAT(found(country), Contains("Europe/London")) << country;
    }
    EXPECT_THAT(found("usa"), Contains("America/Chicago"));
    EXPECT_THAT(found("germany"), Contains("Europe/Berlin"));
}

TEST(ZoneCatalogue, FindsAZoneByAbbreviationWhereItIsInUse) {
    EXPECT_THAT(found("CEST"), Contains("Europe/Berlin"));
    EXPECT_THAT(found("ist"), testing::IsSupersetOf({"Asia/Kolkata", "Europe/Dublin", "Asia/Jerusalem"}));
    EXPECT_THAT(found("cdt"), Contains("America/Chicago"));
    EXPECT_THAT(found("cdt"), Not(Contains("America/Costa_Rica")));
    EXPECT_THAT(found("cst"), Contains("America/Costa_Rica"));
}

TEST(ZoneCatalogue, FindsAZoneByTheOffsetThatHoldsAtTheInstant) {
    for (const auto* const offset : {"+5:30", "+0530", "utc+05:30", "GMT +5:30"}) {
        EXPECT_EQ(found(offset), (std::vector<std::string>{"Asia/Colombo", "Asia/Kolkata"})) << offset;
    }
    EXPECT_THAT(found("+2"), Contains("Europe/Berlin"));
    EXPECT_THAT(found("+2", kWinter), Not(Contains("Europe/Berlin")));
    EXPECT_EQ(found("germany +2"), (std::vector<std::string>{"Europe/Berlin", "Europe/Busingen"}));
    EXPECT_THAT(found("-3:30"), Not(Contains("America/St_Johns")));
    EXPECT_THAT(found("-3:30", kWinter), Contains("America/St_Johns"));
}

TEST(ZoneCatalogue, KnowsRenamedZonesByBothNames) {
    EXPECT_EQ(found("kyiv"), std::vector<std::string>{"Europe/Kyiv"});
    EXPECT_EQ(found("kiev"), std::vector<std::string>{"Europe/Kyiv"});
    EXPECT_EQ(found("saigon"), std::vector<std::string>{"Asia/Ho_Chi_Minh"});
    EXPECT_EQ(cityName("Asia/Kolkata"), "Kolkata");
    EXPECT_EQ(cityName("America/Sao_Paulo"), "São Paulo");
}

TEST(ZoneCatalogue, PutsCitiesThatBeginWithTheQueryFirst) {
    EXPECT_EQ(found("mexico").front(), "America/Mexico_City");
    EXPECT_EQ(found("utc").front(), "UTC");
    EXPECT_EQ(found("").size(), catalogue().zones().size());
    EXPECT_TRUE(found("atlantis").empty());
}

} // namespace tarnquill::Timestamp
