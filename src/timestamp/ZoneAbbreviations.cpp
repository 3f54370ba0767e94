#include "timestamp/ZoneAbbreviations.h"

#include <algorithm>
#include <array>

namespace tarnquill::Timestamp {

namespace {

constexpr std::array kAbbreviations{
    ZoneAbbreviations{"Africa_Central", "CAT", ""},
    ZoneAbbreviations{"Africa_Eastern", "EAT", ""},
    ZoneAbbreviations{"Africa_Southern", "SAST", ""},
    ZoneAbbreviations{"Africa_Western", "WAT", ""},
    ZoneAbbreviations{"Alaska", "AKST", "AKDT"},
    ZoneAbbreviations{"Amazon", "AMT", ""},
    ZoneAbbreviations{"America_Central", "CST", "CDT"},
    ZoneAbbreviations{"America_Eastern", "EST", "EDT"},
    ZoneAbbreviations{"America_Mountain", "MST", "MDT"},
    ZoneAbbreviations{"America_Pacific", "PST", "PDT"},
    ZoneAbbreviations{"Arabian", "AST", ""},
    ZoneAbbreviations{"Argentina", "ART", ""},
    ZoneAbbreviations{"Armenia", "AMT", ""},
    ZoneAbbreviations{"Atlantic", "AST", "ADT"},
    ZoneAbbreviations{"Australia_Central", "ACST", "ACDT"},
    ZoneAbbreviations{"Australia_CentralWestern", "ACWST", ""},
    ZoneAbbreviations{"Australia_Eastern", "AEST", "AEDT"},
    ZoneAbbreviations{"Australia_Western", "AWST", ""},
    ZoneAbbreviations{"Azerbaijan", "AZT", ""},
    ZoneAbbreviations{"Azores", "AZOT", "AZOST"},
    ZoneAbbreviations{"Bangladesh", "BST", ""},
    ZoneAbbreviations{"Bhutan", "BTT", ""},
    ZoneAbbreviations{"Bolivia", "BOT", ""},
    ZoneAbbreviations{"Brasilia", "BRT", ""},
    ZoneAbbreviations{"Brunei", "BNT", ""},
    ZoneAbbreviations{"Cape_Verde", "CVT", ""},
    ZoneAbbreviations{"Chamorro", "ChST", ""},
    ZoneAbbreviations{"Chatham", "CHAST", "CHADT"},
    ZoneAbbreviations{"Chile", "CLT", "CLST"},
    ZoneAbbreviations{"China", "CST", ""},
    ZoneAbbreviations{"Colombia", "COT", ""},
    ZoneAbbreviations{"Cuba", "CST", "CDT"},
    ZoneAbbreviations{"East_Timor", "TLT", ""},
    ZoneAbbreviations{"Ecuador", "ECT", ""},
    ZoneAbbreviations{"Europe_Central", "CET", "CEST"},
    ZoneAbbreviations{"Europe_Eastern", "EET", "EEST"},
    ZoneAbbreviations{"Europe_Western", "WET", "WEST"},
    ZoneAbbreviations{"Europe/Dublin", "GMT", "IST"},
    ZoneAbbreviations{"Europe/London", "GMT", "BST"},
    ZoneAbbreviations{"Fiji", "FJT", ""},
    ZoneAbbreviations{"GMT", "GMT", ""},
    ZoneAbbreviations{"Georgia", "GET", ""},
    ZoneAbbreviations{"Gulf", "GST", ""},
    ZoneAbbreviations{"Guyana", "GYT", ""},
    ZoneAbbreviations{"Hawaii_Aleutian", "HST", "HDT"},
    ZoneAbbreviations{"Hong_Kong", "HKT", ""},
    ZoneAbbreviations{"India", "IST", ""},
    ZoneAbbreviations{"Indochina", "ICT", ""},
    ZoneAbbreviations{"Indonesia_Central", "WITA", ""},
    ZoneAbbreviations{"Indonesia_Eastern", "WIT", ""},
    ZoneAbbreviations{"Indonesia_Western", "WIB", ""},
    ZoneAbbreviations{"Iran", "IRST", "IRDT"},
    ZoneAbbreviations{"Irkutsk", "IRKT", ""},
    ZoneAbbreviations{"Israel", "IST", "IDT"},
    ZoneAbbreviations{"Japan", "JST", ""},
    ZoneAbbreviations{"Kamchatka", "PETT", ""},
    ZoneAbbreviations{"Korea", "KST", ""},
    ZoneAbbreviations{"Krasnoyarsk", "KRAT", ""},
    ZoneAbbreviations{"Kyrgystan", "KGT", ""},
    ZoneAbbreviations{"Lord_Howe", "LHST", "LHDT"},
    ZoneAbbreviations{"Magadan", "MAGT", ""},
    ZoneAbbreviations{"Malaysia", "MYT", ""},
    ZoneAbbreviations{"Maldives", "MVT", ""},
    ZoneAbbreviations{"Mauritius", "MUT", ""},
    ZoneAbbreviations{"Mexico_Northwest", "PST", "PDT"},
    ZoneAbbreviations{"Mexico_Pacific", "MST", "MDT"},
    ZoneAbbreviations{"Mongolia", "ULAT", ""},
    ZoneAbbreviations{"Moscow", "MSK", ""},
    ZoneAbbreviations{"Myanmar", "MMT", ""},
    ZoneAbbreviations{"Nepal", "NPT", ""},
    ZoneAbbreviations{"New_Zealand", "NZST", "NZDT"},
    ZoneAbbreviations{"Newfoundland", "NST", "NDT"},
    ZoneAbbreviations{"Norfolk", "NFT", "NFDT"},
    ZoneAbbreviations{"Novosibirsk", "NOVT", ""},
    ZoneAbbreviations{"Omsk", "OMST", ""},
    ZoneAbbreviations{"Pakistan", "PKT", ""},
    ZoneAbbreviations{"Papua_New_Guinea", "PGT", ""},
    ZoneAbbreviations{"Paraguay", "PYT", "PYST"},
    ZoneAbbreviations{"Peru", "PET", ""},
    ZoneAbbreviations{"Philippines", "PHT", ""},
    ZoneAbbreviations{"Samara", "SAMT", ""},
    ZoneAbbreviations{"Samoa", "SST", ""},
    ZoneAbbreviations{"Seychelles", "SCT", ""},
    ZoneAbbreviations{"Singapore", "SGT", ""},
    ZoneAbbreviations{"Suriname", "SRT", ""},
    ZoneAbbreviations{"Taipei", "CST", ""},
    ZoneAbbreviations{"Tajikistan", "TJT", ""},
    ZoneAbbreviations{"Tonga", "TOT", ""},
    ZoneAbbreviations{"Turkey", "TRT", ""},
    ZoneAbbreviations{"Turkmenistan", "TMT", ""},
    ZoneAbbreviations{"Uruguay", "UYT", ""},
    ZoneAbbreviations{"Uzbekistan", "UZT", ""},
    ZoneAbbreviations{"Vanuatu", "VUT", ""},
    ZoneAbbreviations{"Venezuela", "VET", ""},
    ZoneAbbreviations{"Vladivostok", "VLAT", ""},
    ZoneAbbreviations{"Yakutsk", "YAKT", ""},
    ZoneAbbreviations{"Yekaterinburg", "YEKT", ""},
    ZoneAbbreviations{"Yukon", "MST", ""},
};

const ZoneAbbreviations* find(std::string_view area) {
    const auto* const found = std::ranges::find(kAbbreviations, area, &ZoneAbbreviations::area);
    return found == kAbbreviations.end() ? nullptr : found;
}

} // namespace

const ZoneAbbreviations* findAbbreviations(std::string_view zoneName, std::string_view group) {
    const auto* const own = find(zoneName);
    return own ? own : find(group);
}

} // namespace tarnquill::Timestamp
