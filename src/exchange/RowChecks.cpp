#include "exchange/RowChecks.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <tuple>

#include "data/Conversions.h"

namespace tb {

namespace {

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string Lower(std::string text) {
    for (char& c : text)
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    return text;
}

// One table of one kind, read column by column under the import's own column names.
class RowReader {
public:
    RowReader(CsvKind kind, const CsvTable& table, const std::string& file,
              std::vector<std::string>& problems)
        : columns_(ImportColumns(kind)),
          match_(MatchColumns(kind, table.Header)),
          header_(table.Header),
          file_(file),
          problems_(problems) {
        for (const std::string& name : match_.Doubled)
            problems_.push_back(file_ + ": the column \"" + name + "\" is given twice");
    }

    bool Has(const char* column) const { return match_.FieldOf[Index(column)] >= 0; }

    // A required column, or one of two that give the same thing.
    bool Require(const char* column, const char* other = nullptr) {
        if (Has(column) || (other != nullptr && Has(other)))
            return true;
        problems_.push_back(file_ + ": the column \"" + column + "\" is missing");
        return false;
    }

    std::string Text(const CsvRow& row, const char* column) const {
        const int field = match_.FieldOf[Index(column)];
        return field < 0 ? std::string() : Trimmed(row.Fields[static_cast<std::size_t>(field)]);
    }

    // Names the column as the file's header does.
    void Problem(const CsvRow& row, const char* column, const std::string& text) {
        const int field = match_.FieldOf[Index(column)];
        const std::string name = field < 0 ? column : header_[static_cast<std::size_t>(field)];
        problems_.push_back(ProblemPlace(file_, row.Number, name) + text);
    }

private:
    std::size_t Index(const char* column) const {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (std::string_view(columns_[i].Name) == column)
                return i;
        }
        return columns_.size();  // never: every caller names a column of its kind
    }

    const std::vector<CsvColumn>& columns_;
    ColumnMatch match_;
    const std::vector<std::string>& header_;
    const std::string& file_;
    std::vector<std::string>& problems_;
};

std::optional<bool> YesOrNo(const std::string& text) {
    const std::string value = Lower(text);
    if (value.empty() || value == "no" || value == "n" || value == "false" || value == "0")
        return false;
    if (value == "yes" || value == "y" || value == "true" || value == "1" || value == "x")
        return true;
    return std::nullopt;
}

// The number the model window stores: empty is 0.
std::optional<double> Measure(const std::string& text) {
    return text.empty() ? std::optional<double>(0) : ParseNumber(text);
}

bool SailDigitsFit(const std::string& sailNo) {
    std::int64_t number = 0;
    for (const char c : sailNo) {
        if (c < '0' || c > '9')
            continue;
        number = number * 10 + (c - '0');
        if (number > std::numeric_limits<std::int32_t>::max())
            return false;
    }
    return true;
}

void CheckPeople(RowReader& in, const CsvTable& table, std::vector<PersonRow>& out) {
    if (!in.Require("First name") | !in.Require("Family name"))
        return;
    for (const CsvRow& row : table.Rows) {
        PersonRow person{row.Number,
                         in.Text(row, "Title"),
                         in.Text(row, "First name"),
                         in.Text(row, "Family name"),
                         in.Text(row, "Address 1"),
                         in.Text(row, "Address 2"),
                         in.Text(row, "City"),
                         in.Text(row, "Postcode"),
                         in.Text(row, "Country"),
                         in.Text(row, "Phone"),
                         in.Text(row, "Fax"),
                         in.Text(row, "Day phone"),
                         in.Text(row, "Mobile"),
                         in.Text(row, "E-mail")};
        const auto member = YesOrNo(in.Text(row, "Club member"));
        if (person.Firstname.empty())
            in.Problem(row, "First name", "Please specify the forename of the person");
        else if (person.Lastname.empty())
            in.Problem(row, "Family name", "Please specify the surname of the person");
        else if (!member)
            in.Problem(row, "Club member",
                       "\"" + in.Text(row, "Club member") + "\" is not Yes or No");
        else
            person.ClubMember = *member, out.push_back(std::move(person));
    }
}

void CheckModels(RowReader& in, const CsvTable& table, std::vector<ModelRow>& out) {
    if (!in.Require("Model"))
        return;
    std::map<std::string, int> seen;
    for (const CsvRow& row : table.Rows) {
        const std::string model = in.Text(row, "Model");
        const auto loa = Measure(in.Text(row, "Length"));
        const auto draft = Measure(in.Text(row, "Draft"));
        if (model.empty())
            in.Problem(row, "Model", "Please specify a name for the model of boat");
        else if (!loa)
            in.Problem(row, "Length", "The LOA is not a valid number");
        else if (!draft)
            in.Problem(row, "Draft", "The draft is not a valid number");
        else if (const auto [it, added] = seen.emplace(Lower(model), row.Number); !added)
            in.Problem(row, "Model", "the model of row " + std::to_string(it->second) + " again");
        else
            out.push_back({row.Number, model, *loa, *draft});
    }
}

// The sail number of a row: the full sail number when the file gives one, else the sail number.
std::string SailNumber(const RowReader& in, const CsvRow& row) {
    const std::string full = in.Text(row, "Full sail No");
    return full.empty() ? in.Text(row, "Sail No") : full;
}

const char* SailColumn(const RowReader& in) {
    return in.Has("Full sail No") ? "Full sail No" : "Sail No";
}

void CheckBoats(RowReader& in, const CsvTable& table, std::vector<BoatRow>& out) {
    if (!in.Require("Boat") | !in.Require("Sail No", "Full sail No") | !in.Require("Model") |
        !in.Require("Owner"))
        return;
    std::map<std::string, int> seen;
    for (const CsvRow& row : table.Rows) {
        BoatRow boat{row.Number, in.Text(row, "Boat"), SailNumber(in, row), in.Text(row, "Model"),
                     SplitPersonName(in.Text(row, "Owner"))};
        if (boat.BoatName.empty())
            in.Problem(row, "Boat", "Please specify the boat name");
        else if (boat.FullSailNo.empty())
            in.Problem(row, SailColumn(in), "Please specify the sail number");
        else if (!SailDigitsFit(boat.FullSailNo))
            in.Problem(row, SailColumn(in),
                       "the digits of the sail number make more than 2147483647");
        else if (boat.Model.empty())
            in.Problem(row, "Model", "Please specify the model of boat");
        else if (boat.Owner.Firstname.empty() || boat.Owner.Lastname.empty())
            in.Problem(row, "Owner", "Please specify the owner");
        else if (const auto [it, added] = seen.emplace(Lower(boat.FullSailNo), row.Number); !added)
            in.Problem(row, SailColumn(in),
                       "the sail number of row " + std::to_string(it->second) + " again");
        else
            out.push_back(std::move(boat));
    }
}

void CheckHandicaps(RowReader& in, const CsvTable& table, std::vector<HandicapRow>& out) {
    if (!in.Require("Sail No", "Full sail No") | !in.Require("Handicap type") | !in.Require("TCF") |
        !in.Require("Effective from"))
        return;
    std::map<std::tuple<std::string, std::string, DateTime>, int> seen;
    for (const CsvRow& row : table.Rows) {
        HandicapRow handicap;
        handicap.Row = row.Number;
        handicap.SailNo = SailNumber(in, row);
        handicap.HandicapType = in.Text(row, "Handicap type");
        const auto tcf = ParseNumber(in.Text(row, "TCF"));
        const auto from = ParseTypedDate(in.Text(row, "Effective from"));
        const std::string expires = in.Text(row, "Expires");
        const auto until = ParseTypedDate(expires);
        if (handicap.SailNo.empty())
            in.Problem(row, SailColumn(in), "Please specify the sail number");
        else if (handicap.HandicapType.empty())
            in.Problem(row, "Handicap type", "Please specify a handicap type");
        else if (!tcf || *tcf <= 0 || *tcf >= 10)
            in.Problem(row, "TCF", "Please specify a valid handicap value");
        else if (!from)
            in.Problem(row, "Effective from", "Please specify a valid start date");
        else if (!expires.empty() && !until)
            in.Problem(row, "Expires", "The expiration date is not a valid date");
        else if (!expires.empty() && *until <= *from)
            in.Problem(row, "Expires", "The expiration date must be later than the start date");
        else if (const auto [it, added] = seen.emplace(
                     std::tuple(Lower(handicap.SailNo), Lower(handicap.HandicapType), *from),
                     row.Number);
                 !added)
            in.Problem(row, "Effective from",
                       "the handicap of row " + std::to_string(it->second) + " again");
        else {
            handicap.Tcf = *tcf;
            handicap.EffectiveFrom = DatePart(*from);
            if (until)
                handicap.Expires = DatePart(*until);
            out.push_back(std::move(handicap));
        }
    }
}

// A finish "hh:mm:ss" or "hhmmss", optionally after a date: "12/06/2026 14:35:12"; "-" or
// nothing is no time taken.
bool ReadFinish(const std::string& text, FinishRow& finish) {
    if (text.empty() || text == "-")
        return true;
    const auto blank = text.find_last_of(" T");
    if (blank == std::string::npos) {
        finish.TimeOfDay = ParseClockTime(text, ClockForm::Strict);
        return finish.TimeOfDay.has_value();
    }
    const auto day = ParseTypedDate(text.substr(0, blank));
    finish.TimeOfDay = ParseClockTime(text.substr(blank + 1), ClockForm::Strict);
    if (!day || !finish.TimeOfDay)
        return false;
    finish.Day = DatePart(*day);
    return true;
}

void CheckFinishes(RowReader& in, const CsvTable& table, std::vector<FinishRow>& out) {
    if (!in.Require("Sail No", in.Has("Full sail No") ? "Full sail No" : "Boat") |
        !in.Require("Finish"))
        return;
    for (const CsvRow& row : table.Rows) {
        FinishRow finish;
        finish.Row = row.Number;
        finish.Boat = SailNumber(in, row);
        finish.BoatColumn = SailColumn(in);
        if (finish.Boat.empty())
            finish.Boat = in.Text(row, "Boat"), finish.BoatColumn = "Boat";
        const std::string day = in.Text(row, "Day");
        const auto date = ParseTypedDate(day);
        finish.Status = in.Text(row, "Status");
        finish.PenaltyMins = in.Text(row, "Penalty minutes");
        finish.PenaltyPercent = in.Text(row, "Penalty percent");
        finish.PenaltyPlaces = in.Text(row, "Penalty places");
        finish.Notes = in.Text(row, "Notes");
        finish.NextDay = Lower(day) == "next day";
        if (finish.Boat.empty()) {
            in.Problem(row, finish.BoatColumn.c_str(), "No boat is selected");
        } else if (!day.empty() && !finish.NextDay && !date) {
            in.Problem(row, "Day", "Finish date is invalid");
        } else if (!ReadFinish(in.Text(row, "Finish"), finish)) {
            in.Problem(row, "Finish", "Finish time is invalid");
        } else if (!finish.PenaltyMins.empty() && !IsNumeric(finish.PenaltyMins)) {
            in.Problem(row, "Penalty minutes", "Penalty or redress value is invalid");
        } else if (!finish.PenaltyPercent.empty() && !IsNumeric(finish.PenaltyPercent)) {
            in.Problem(row, "Penalty percent", "Penalty or redress value is invalid");
        } else if (!finish.PenaltyPlaces.empty() && !IsNumeric(finish.PenaltyPlaces)) {
            in.Problem(row, "Penalty places", "Penalty or redress value is invalid");
        } else if (!finish.PenaltyPlaces.empty() &&
                   std::trunc(*ParseNumber(finish.PenaltyPlaces)) !=
                       *ParseNumber(finish.PenaltyPlaces)) {
            in.Problem(row, "Penalty places", "Penalty must be a whole number");
        } else {
            if (date && !finish.Day)
                finish.Day = DatePart(*date);
            out.push_back(std::move(finish));
        }
    }
}

}  // namespace

PersonName SplitPersonName(const std::string& name) {
    const std::string text = Trimmed(name);
    const auto comma = text.rfind(',');
    if (comma != std::string::npos)
        return {Trimmed(text.substr(comma + 1)), Trimmed(text.substr(0, comma))};
    const auto blank = text.find_last_of(' ');
    if (blank == std::string::npos)
        return {"", text};
    return {Trimmed(text.substr(0, blank)), text.substr(blank + 1)};
}

std::string ProblemPlace(const std::string& file, int row, const std::string& column) {
    return file + " row " + std::to_string(row) + ", column " + column + ": ";
}

std::vector<std::string> CheckRows(CsvKind kind, const CsvTable& table, const std::string& file,
                                   ImportRows& Rows) {
    Rows = ImportRows();
    std::vector<std::string> problems;
    RowReader in(kind, table, file, problems);
    switch (kind) {
        case CsvKind::People:
            CheckPeople(in, table, Rows.People);
            break;
        case CsvKind::Models:
            CheckModels(in, table, Rows.Models);
            break;
        case CsvKind::Boats:
            CheckBoats(in, table, Rows.Boats);
            break;
        case CsvKind::Handicaps:
            CheckHandicaps(in, table, Rows.Handicaps);
            break;
        case CsvKind::Finishes:
            CheckFinishes(in, table, Rows.Finishes);
            break;
        default:
            problems.push_back(file + ": " + CsvKindName(kind) + " are written, never read");
    }
    return problems;
}

}  // namespace tb
