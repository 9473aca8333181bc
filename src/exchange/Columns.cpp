#include "exchange/Columns.h"

#include <array>
#include <cctype>

namespace tb {

namespace {

constexpr std::array<const char*, 7> kKindNames = {"people",   "models",  "boats",    "handicaps",
                                                   "finishes", "results", "standings"};

const std::vector<CsvColumn> kPeople = {
    {"Title", {"Salutation"}},
    {"First name", {"Forename", "Given name", "First"}},
    {"Family name", {"Surname", "Last name", "Last"}},
    {"Address 1", {"Address", "Address line 1", "Street"}},
    {"Address 2", {"Address line 2", "Locality"}},
    {"City", {"Town"}},
    {"Postcode", {"Post code", "ZIP", "ZIP code", "Postal code"}},
    {"Country", {}},
    {"Phone", {"Telephone", "Tel", "Tel no", "Home phone", "Evening phone"}},
    {"Fax", {"Fax no"}},
    {"Day phone", {"Daytime phone", "Work phone", "Day tel"}},
    {"Mobile", {"Cell", "Mobile phone", "Cell phone", "Mobile no"}},
    {"Club member", {"Member"}},
    {"E-mail", {"E-mail address", "Mail"}},
};

const CsvColumn kSailNo = {"Sail No", {"Sail number", "Sail #", "Sail"}};
const CsvColumn kFullSailNo = {"Full sail No", {"Full sail number", "Full sail #"}};
const CsvColumn kBoat = {"Boat", {"Boat name", "Yacht", "Yacht name", "Name"}};

const std::vector<CsvColumn> kModels = {
    {"Model", {"Class", "Type", "Design", "Boat model", "Boat type"}},
    {"Length", {"LOA", "Length overall"}},
    {"Draft", {"Draught"}},
};

const std::vector<CsvColumn> kBoats = {
    kBoat,
    kSailNo,
    kFullSailNo,
    {"Model", {"Class", "Type", "Design", "Boat model", "Boat type"}},
    {"Owner", {"Helm", "Skipper"}},
};

const std::vector<CsvColumn> kHandicaps = {
    kSailNo,
    kFullSailNo,
    {"Handicap type", {"Handicap system", "Rating system", "System"}},
    {"TCF", {"Handicap", "Rating", "TCC"}},
    {"Effective from", {"From", "Valid from", "Start"}},
    {"Expires", {"Until", "Valid to", "Valid until", "Expiry", "To"}},
};

const std::vector<CsvColumn> kFinishes = {
    kBoat,
    kSailNo,
    kFullSailNo,
    {"Finish", {"Finish time", "Time", "Finished", "Finish time of day"}},
    {"Day", {"Date", "Finish date", "Finish day"}},
    {"Status", {"Code", "Result code", "Status code"}},
    {"Penalty minutes", {"Penalty mins", "Minutes", "Mins"}},
    {"Penalty percent", {"Percent", "Penalty %", "%"}},
    {"Penalty places", {"Places", "Redress", "Penalty points"}},
    {"Notes", {"Note", "Comment", "Comments", "Remarks"}},
};

const std::vector<CsvColumn> kNone = {};

}  // namespace

const char* CsvKindName(CsvKind kind) {
    return kKindNames[static_cast<std::size_t>(kind)];
}

std::optional<CsvKind> CsvKindNamed(std::string_view name) {
    for (std::size_t i = 0; i < kKindNames.size(); ++i) {
        if (name == kKindNames[i])
            return static_cast<CsvKind>(i);
    }
    return std::nullopt;
}

bool IsRegisterKind(CsvKind kind) {
    return kind == CsvKind::People || kind == CsvKind::Models || kind == CsvKind::Boats ||
           kind == CsvKind::Handicaps;
}

const std::vector<CsvColumn>& ImportColumns(CsvKind kind) {
    switch (kind) {
        case CsvKind::People:
            return kPeople;
        case CsvKind::Models:
            return kModels;
        case CsvKind::Boats:
            return kBoats;
        case CsvKind::Handicaps:
            return kHandicaps;
        case CsvKind::Finishes:
            return kFinishes;
        default:
            return kNone;
    }
}

std::string HeaderKey(std::string_view header) {
    std::string key;
    for (const char c : header) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 || byte >= 0x80)
            key += static_cast<char>(std::tolower(byte));
        else if (c == '#')
            key += "no";
        else if (c == '%')
            key += "percent";
    }
    return key;
}

ColumnMatch MatchColumns(CsvKind kind, const std::vector<std::string>& header) {
    const auto& columns = ImportColumns(kind);
    ColumnMatch match;
    match.FieldOf.assign(columns.size(), -1);
    match.Names.assign(header.size(), "");
    for (std::size_t field = 0; field < header.size(); ++field) {
        const std::string key = HeaderKey(header[field]);
        bool known = false;
        for (std::size_t c = 0; c < columns.size() && !known; ++c) {
            known = HeaderKey(columns[c].Name) == key;
            for (const char* synonym : columns[c].Synonyms)
                known = known || HeaderKey(synonym) == key;
            if (!known)
                continue;
            if (match.FieldOf[c] >= 0)
                match.Doubled.push_back(columns[c].Name);
            else
                match.FieldOf[c] = static_cast<int>(field);
            match.Names[field] = columns[c].Name;
        }
        if (!known && !key.empty())
            match.Ignored.push_back(header[field]);
    }
    return match;
}

}  // namespace tb
