#pragma once

// The system's one gateway to the database. Every operation returns its message (empty on
// success) and hands its other results back through reference arguments; nothing throws past an
// operation. Each operation is defined in the folder of the subsystem that owns its tables.

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/ReportMenu.h"
#include "data/RowSet.h"
#include "data/Statement.h"
#include "exchange/Columns.h"
#include "exchange/Csv.h"

namespace tb {

class Connection;

struct ScopeResult;
struct SeriesImport;
struct ImportCounts;

// What an import found in its file: the header with the column each field is read as (empty
// for a field it ignores), the first rows, every problem with its row and column, and the
// one-line summary per kind of what was (or would be) added, updated and skipped.
struct ImportReport {
    std::vector<std::string> Header;
    std::vector<std::string> Recognised;
    std::vector<std::string> Ignored;
    std::vector<CsvRow> FirstRows;
    std::vector<std::string> Problems;
    std::string Summary;
};

class clResults {
public:
    clResults();
    ~clResults();
    clResults(const clResults&) = delete;
    clResults& operator=(const clResults&) = delete;

    bool Connected() const { return Connected_; }
    // Closes the connection, ignoring errors; the next operation opens it again (with DataFile).
    void CloseConnection();

    // Copies the whole database, every Id kept, to Target: a new file (never an existing one) or
    // a PostgreSQL database that is empty or holds only what a new database holds. All or
    // nothing: a failure leaves no file behind and nothing written on the server.
    std::string CopyDatabase(const std::string& Target);

    // Checks a data file text before it is kept in the settings: a file that exists, or a
    // PostgreSQL URI (not looked up here) without a password. Returns a message.
    static std::string CheckDataFile(const std::string& DataFile);

    // Doubles every apostrophe and changes nothing else.
    static std::string SqlQuote(const std::string& Text);

    // ---- Configuration and settings
    std::string GetSetting(const std::string& Parameter, std::string& Value);
    std::string PutSetting(const std::string& Parameter, const std::string& Value);
    std::string GetInitialisationInfo();
    const ReportMenuTable& ReportMenu() const { return ReportMenu_; }

    // ---- Boats, models and handicaps
    std::string GetBoats(RowSet& Boats);
    struct BoatsCol {
        enum : std::size_t { Id, BoatName, Model, FullSailNo, SailNo };
    };
    std::string GetModels(RowSet& Models);
    struct ModelsCol {
        enum : std::size_t { Id, Model, Draft };
    };
    std::string GetHandicapTypes(RowSet& Types);
    struct HandicapTypesCol {
        enum : std::size_t { Id, Description };
    };
    std::string GetHandicaps(int BoatId, RowSet& Handicaps);
    struct HandicapsCol {
        enum : std::size_t { Id, Description, Handicap, EffectiveFrom, Expires };
    };
    std::string GetSeriesForBoat(int BoatId, RowSet& Series);
    // Columns of GetSeriesForBoat and GetSeriesForPerson.
    struct SeriesEnteredCol {
        enum : std::size_t { FirstRaceDate, Title };
    };
    std::string GetBoatsOfModel(int ModelId, RowSet& Boats);
    std::string GetBoatsOwned(int PersonId, RowSet& Boats);
    // Columns of GetBoatsOfModel and GetBoatsOwned.
    struct BoatNamesCol {
        enum : std::size_t { BoatName, FullSailNo };
    };
    std::string FindBoat(const std::string& FullSailNo, RowSet& Boats);
    // Columns of FindBoat, FindName and FindPerson.
    struct FoundCol {
        enum : std::size_t { Id, Count };
    };
    std::string GetBoatsUsingHandicap(int HandicapTypeId, RowSet& Boats);
    struct BoatsUsingCol {
        enum : std::size_t { BoatName };
    };
    std::string GetClassesUsingHandicap(int HandicapTypeId, RowSet& Classes);
    struct ClassesUsingCol {
        enum : std::size_t { Title, SeriesDate, ClassName };
    };
    std::string GetSeriesUsingHandicap(int HandicapTypeId, RowSet& Series);
    // Columns of GetSeriesUsingHandicap, GetSeriesUsingScoring and GetSeriesUsingDiscard.
    struct SeriesUsingCol {
        enum : std::size_t { Title, SeriesDate };
    };
    std::string GetBoatDetails(int Id, RowSet& Detail);
    struct BoatDetailCol {
        enum : std::size_t { BoatName, BoatType, FullSailNo, Owner };
    };
    std::string GetModelDetails(int Id, RowSet& Detail);
    struct ModelDetailCol {
        enum : std::size_t { Model, LOA, Draft };
    };
    // Id 0 or above reads that handicap (an empty row when there is none); a negative Id reads
    // handicap -Id as the template of a revision. Both 0 and negative Ids give a period from
    // today to the end of the year.
    std::string GetHandicapDetail(int Id, RowSet& Detail);
    struct HandicapDetailCol {
        enum : std::size_t { HandicapType, Handicap, EffectiveFrom, Expires, Count };
    };
    // Id 0 adds a boat; the new Id comes back in Id.
    std::string PutBoatDetails(int& Id, const std::string& BoatName, const std::string& FullSailNo,
                               int BoatType, int Owner);
    // Id -1 adds a model; the new Id comes back in Id.
    std::string PutModelDetails(int& Id, const std::string& Model, double LOA, double Draft);
    // Id above 0 edits that handicap; otherwise a handicap is added, and a negative Id also ends
    // handicap -Id the day before the new one starts. Expires empty is open-ended.
    std::string PutHandicapDetails(int Id, int Boat, short HandicapType,
                                   const std::string& Handicap, const std::string& EffectiveFrom,
                                   const std::string& Expires);
    std::string RemoveBoat(int Id);
    std::string RemoveModel(int Id);
    std::string RemoveHandicapType(int Id);

    // ---- People
    std::string GetPeople(RowSet& People);
    struct PeopleCol {
        enum : std::size_t { Id, Person, City, Postcode };
    };
    std::string GetPersonDetails(int Id, RowSet& Detail);
    struct PersonDetailCol {
        enum : std::size_t {
            Title,
            Firstname,
            Lastname,
            Address1,
            Address2,
            City,
            Postcode,
            Country,
            TelNo,
            FaxNo,
            DayTelNo,
            MobileNo,
            ClubMember,
            EmailAddress,
            Count
        };
    };
    std::string GetSeriesForPerson(int PersonId, RowSet& Series);
    // Both finds give one row with an empty Id when nobody matches.
    std::string FindName(const std::string& Firstname, const std::string& Lastname, RowSet& People);
    std::string FindPerson(const std::string& LastnameStart, RowSet& People);
    // Id 0 adds a person; the new Id comes back in Id.
    std::string PutPersonalDetails(int& Id, const std::string& Title, const std::string& Firstname,
                                   const std::string& Lastname, const std::string& Address1,
                                   const std::string& Address2, const std::string& City,
                                   const std::string& Postcode, const std::string& Country,
                                   const std::string& TelNo, const std::string& FaxNo,
                                   const std::string& DayTelNo, const std::string& MobileNo,
                                   bool ClubMember, const std::string& EmailAddress);
    std::string RemovePerson(int Id);

    // ---- Series and class splits
    std::string GetSeriesDetails(int SeriesId, RowSet& Rows);
    struct SeriesDetailCol {
        enum : std::size_t { Title, SubseriesTitle, Scoring, Discards };
    };
    std::string PutSeriesDetails(int& SeriesId, const std::string& Title,
                                 const std::string& SubseriesTitle, int Scoring,
                                 const std::string& Discards);
    std::string RemoveSeries(int SeriesId);
    std::string GetClassSplits(RowSet& Rows, int SeriesId);
    struct ClassSplitsCol {
        enum : std::size_t { Id, Description, ClassName, MinTCF };
    };
    std::string GetClassDetails(int ClassId, RowSet& Rows);
    struct ClassDetailCol {
        enum : std::size_t { HandicapType, ClassName, MinTCF };
    };
    std::string PutClassDetails(int ClassId, int SeriesId, const std::string& ClassName,
                                const std::string& MinTCF, short HandicapType);
    std::string RemoveClass(int ClassId);
    std::string GetEntryClasses(int SeriesId, RowSet& Rows);
    struct EntryClassesCol {
        enum : std::size_t { Id, ClassName, Flag, Description };
    };

    // ---- Race schedule
    std::string GetRaceDetails(int ScheduleId, RowSet& Rows);
    struct RaceDetailCol {
        enum : std::size_t { RaceName, RaceDate, InSubSeries, Reference };
    };
    std::string PutScheduleDetails(int ScheduleId, int Series, const std::string& RaceName,
                                   const std::string& RaceDate, bool InSubSeries,
                                   const std::string& Reference);
    std::string RemoveSchedule(int ScheduleId);

    // ---- Entries
    std::string GetEntries(int SeriesId, RowSet& Rows);
    struct EntriesCol {
        enum : std::size_t { BoatId, BoatName, EntrantId, FullSailNo };
    };
    std::string GetEntriesForRace(int ScheduleId, RowSet& Rows);
    struct RaceEntriesCol {
        enum : std::size_t { EntrantId, BoatName, FullSailNo };
    };
    std::string GetEntryDetails(int BoatId, int SeriesId, int& EntrantPerson, int& ClassId,
                                std::string& EntryDate, short& EntrantType,
                                std::string& NameOnResults, RowSet& RaceRows);
    // Columns of GetEntryDetails's race rows.
    struct EntrantRacesCol {
        enum : std::size_t { Race, Handicap };
    };
    // The entrant's race list becomes exactly the positive Ids of Races; Ids of races that stay
    // entered are set to 0.
    std::string PutEntryDetails(int BoatId, int SeriesId, int EntrantPerson, int ClassId,
                                const std::string& EntryDate, short EntrantType,
                                const std::string& NameOnResults, std::vector<int>& Races);
    std::string RemoveEntrant(int EntrantId);
    std::string CheckResults(int SeriesId, int& BoatEntrant, bool& HasResults);

    // ---- Years, series and races of the main window
    std::string GetYears(RowSet& Years);
    struct YearsCol {
        enum : std::size_t { Year };
    };
    std::string GetCurrentYear(RowSet& Years, std::string& CurrentYear);
    std::string GetSeries(RowSet& Series, const std::string& Year);
    struct SeriesCol {
        enum : std::size_t { Id, Title };
    };
    std::string GetCurrentSeries(RowSet& Series, int& CurrentSeries, const std::string& Year);
    std::string GetSchedule(RowSet& Schedule, int SeriesId);
    struct ScheduleCol {
        enum : std::size_t { Id, RaceName, RaceDate, InSubSeries };
    };
    std::string GetCurrentSchedule(RowSet& Schedule, int SeriesId, int& CurrentSchedule);

    // ---- Start times
    // Creates the missing start of every class of the series for the race (with the default
    // comment and footnote), then gives the race's starts ordered by class name: Class.Series,
    // ClassId, RaceId (the Start Id), ClassName, StartTime, Schedule, TopNote, Footnote,
    // RaceDate. Rows stays untouched when the series has no classes.
    std::string GetStartTimes(int SeriesId, int RaceId, RowSet& Rows);
    struct StartTimesCol {
        enum : std::size_t {
            Series,
            ClassId,
            StartId,
            ClassName,
            StartTime,
            Race,
            TopNote,
            Footnote,
            RaceDate
        };
    };
    // One row: class name, start time, race, Start Id; a class without a start time in the race
    // gives its name, two empty texts and 0; an entrant without a class gives four empty cells.
    std::string GetStartTimeForEntrant(int RaceId, int EntrantId, RowSet& Row);
    struct EntrantStartCol {
        enum : std::size_t { ClassName, StartTime, Race, StartId, Count };
    };
    // StartTime is a date-time or Null (not started); empty texts are stored as Null.
    std::string PutStartTime(int StartId, const Value& StartTime, const std::string& TopNote,
                             const std::string& Footnote);

    // ---- Result recording
    // One row of seven columns: Id, FinishTime, Status, PenaltyMins, PenaltyPercent,
    // PenaltyPoints, Notes; all empty when the entrant has no result in the race.
    std::string GetResult(int RaceId, int EntrantId, RowSet& Row);
    struct ResultCol {
        enum : std::size_t {
            Id,
            FinishTime,
            Status,
            PenaltyMins,
            PenaltyPercent,
            PenaltyPoints,
            Notes,
            Count
        };
    };
    // FinishTime is "hhmmss" or empty (no time taken), FinishDate "dd mmm yyyy"; penalties are
    // numbers as typed, empty for none. Creates the race's result of the entrant or updates it.
    std::string PutResult(int RaceId, int EntrantId, const std::string& FinishTime,
                          const std::string& FinishDate, int Status, const std::string& PenaltyMins,
                          const std::string& PenaltyPercent, const std::string& PenaltyPoints,
                          const std::string& Notes);
    // Id, Code, Description ordered by code.
    std::string GetStatus(RowSet& Rows);
    struct StatusCol {
        enum : std::size_t { Id, Code, Description };
    };
    // The race's entered boats matching Search: all digits searches the sail number, digits with
    // letters the full sail number exactly, no digits the start of the boat name. Columns:
    // Entrant.Id, BoatName, FullSailNo, ClassName. No match leaves one empty cell.
    std::string GetBoatInRace(int RaceId, const std::string& Search, RowSet& Rows);
    struct BoatInRaceCol {
        enum : std::size_t { EntrantId, BoatName, FullSailNo, ClassName };
    };

    // ---- Scoring and discard systems
    // Points values as typed: places 1 to 7, then the values of the DNF/DNS/OCS/RAF,
    // BFD/DNE/DSQ and DNC groups, then the minimums of the same three groups.
    using ScoringValues = std::array<std::string, 13>;
    // Discard lines field first: [0][line] races run, [1][line] discards; blank is Null.
    using DiscardLines = std::array<std::array<std::string, 5>, 2>;
    std::string GetScoring(RowSet& Systems);
    std::string GetDiscards(RowSet& Systems);
    // Columns of GetScoring and GetDiscards.
    struct SystemsCol {
        enum : std::size_t { Id, Description };
    };
    std::string GetScoringDetail(int ScoringId, RowSet& Points);
    struct ScoringDetailCol {
        enum : std::size_t { Status, Place, Base, Value, MinValue };
    };
    std::string GetDiscardDetail(int DiscardId, RowSet& Lines);
    struct DiscardDetailCol {
        enum : std::size_t { RacesRun, Discards };
    };
    std::string GetSeriesUsingScoring(int ScoringId, RowSet& Series);
    std::string GetSeriesUsingDiscard(int DiscardId, RowSet& Series);
    // Saves a scoring system and a discard system together. An Id that is no existing system
    // adds one; the Ids passed in are not changed.
    std::string PutScoring(int ScoringId, const std::string& ScoringName, int DiscardId,
                           const std::string& DiscardName, short BaseDNF, short BaseDSQ,
                           short BaseDNC, const ScoringValues& Values,
                           const DiscardLines& Discards);
    std::string RemoveScoring(int ScoringId);
    std::string RemoveDiscardSystem(int DiscardId);

    // ---- Elapsed and corrected times
    std::string ComputeResultTimes(int RaceId, RowSet& Problems);
    // Columns of the problems: a boat without exactly one handicap for the race, with Class 0
    // when the boat is in no specific class.
    struct ProblemsCol {
        enum : std::size_t { Boat, BoatName, Handicaps, Description, RaceDate, Class, Count };
    };

    // ---- Race points
    std::string ComputePoints(int RaceId, short Option);

    // ---- Series points and discards
    // Discards: one row per class of the races-run list; column 0 the number of discards,
    // column 1 the class Id, so that reports match them to classes by Id.
    std::string ComputeSeriesPoints(int RaceId, short Option, RowSet& Discards);
    struct DiscardsCol {
        enum : std::size_t { Discards, ClassId, Count };
    };

    // ---- Race and cumulative results
    std::string GetRaceResults(int RaceId, short Option, RowSet& ClassRows, RowSet& BoatRows);
    // Columns of the race's class rows (the entry lists' class rows share them up to Footnote).
    struct RaceClassCol {
        enum : std::size_t {
            ClassId,
            Entrants,
            Starters,
            Title,
            SubseriesTitle,
            RaceName,
            RaceDate,
            Started,
            ClassName,
            Header,
            Comment,
            TopNote,
            Footnote,
            SeriesId,
            Reference,
            CumulativeTitle
        };
    };
    // Columns of the race's boat rows; Elapsed and Corrected come back as h:mm:ss.
    struct RaceBoatCol {
        enum : std::size_t {
            StartId,
            ClassId,
            BoatName,
            FullSailNo,
            Owner,
            Handicap,
            Finished,
            Elapsed,
            Corrected,
            Points,
            Status,
            Position,
            Notes,
            PenaltyMins,
            PenaltyPercent,
            PenaltyPoints,
            Model
        };
    };
    std::string GetCumulativeResults(int RaceId, short Option, RowSet& CumulativeRows);
    struct StandingsCol {
        enum : std::size_t {
            ClassId,
            ClassName,
            BoatId,
            BoatName,
            FullSailNo,
            RaceDate,
            RaceName,
            Points,
            Total,
            Position,
            Count
        };
    };

    // ---- Reports
    // Writes the report of the kind (0 to 5: E, A, C, R, S, B) with the report menu's action for
    // the race into the year folder of ReportPath; OutputPath is the file to show (the problem
    // report when the race's handicaps are not settled), or where an output object published
    // the page when it says. Unsettled handicaps stop a publishing action with a message.
    std::string CreateReport(int KindIndex, int ActionIndex, int Viewer, int RaceId,
                             std::string& OutputPath);
    // Notice, when not empty, is said at the top of the page (a publishing action it stopped).
    std::string ReportProblemsHTML(const std::string& ResultsFile, const RowSet& ClassRows,
                                   const RowSet& Problems, std::string& Html,
                                   const std::string& Notice = {});
    // Reads the report menu from the given initialisation file instead of the program's own.
    std::string ReadReportMenu(const std::string& IniFile);

    // ---- Options
    // Saves the report heading, comment and footnote, then adds (HandicapTypeId 0) or renames a
    // handicap type; a name another type holds is refused after the three settings are saved.
    std::string PutOptions(const std::string& Heading, const std::string& Comment,
                           const std::string& Footnote, int& HandicapTypeId,
                           const std::string& Description);

    // ---- Import
    // Writes a planned import (a series from another scoring program's file) in one
    // transaction: nothing is written when any step fails.
    std::string ImportSeries(const SeriesImport& Plan, ImportCounts& Counts);
    // Reads, plans and writes another scoring program's .blw series file; Summary is what was
    // added, reused and scored differently from the file.
    std::string ImportSeriesFile(const std::string& FilePath, std::string& Summary);

    // ---- Register look-ups that create what they do not find (Added tells which)
    std::string FindOrAddPerson(const std::string& Firstname, const std::string& Lastname, int& Id,
                                bool& Added);
    std::string FindOrAddModel(const std::string& Model, int& Id, bool& Added);
    std::string FindOrAddHandicapType(const std::string& Description, int& Id, bool& Added);
    // The boat with exactly that full sail number, else the one boat whose sail number (its
    // digits) it is; Id 0 when there is none or more than one.
    std::string FindBoatBySailNumber(const std::string& SailNo, int& Id);

    // ---- CSV import and export
    // Reads and checks the file as an import would, writes nothing. The message is empty when
    // the file could be looked at; its problems are in the report.
    std::string PreviewImport(CsvKind Kind, const std::string& FilePath, bool Update, int RaceId,
                              ImportReport& Report);
    // Imports the whole file or nothing: any problem is the message, one line per problem.
    // Existing records are skipped, or updated with Update. RaceId is the race of finishes.
    std::string ImportCsv(CsvKind Kind, const std::string& FilePath, bool Update, int RaceId,
                          ImportReport& Report);
    // The CSV text (UTF-8 with a byte-order mark) of a register kind, or of a race's results or
    // its series' standings up to the race, computed as the reports compute them.
    std::string ExportCsv(CsvKind Kind, int RaceId, std::string& Csv);

    // ---- Classes by class split
    // Moves: one row per entrant whose class would change (Entrant.Id, BoatName, FullSailNo,
    // old ClassName, new ClassName, new Class.Id); Unrated: boats without a handicap of their
    // class's type on their entry date (BoatName, FullSailNo), which keep their class.
    std::string GetClassSplitMoves(int SeriesId, RowSet& Moves, RowSet& Unrated);
    std::string PutClassSplit(int SeriesId, const RowSet& Moves);

private:
    // One import, written and committed, or looked at and rolled back.
    std::string Import(CsvKind Kind, const std::string& FilePath, bool Update, int RaceId,
                       bool Commit, ImportReport& Report);

    // How an operation meets the database: a query reads; a write runs in one transaction; a
    // store also stamps the change time when it succeeds; a remove shows a connection failure
    // at once. Every shape turns a run-time error into the "C-Error" text for its location.
    enum class Shape { Query, Write, Store, Remove };
    std::string Run(const char* location, Shape shape, const std::function<std::string()>& body);
    // Runs body in one transaction (a savepoint inside another's) and commits what it wrote,
    // whatever its message. A conflict with another officer's transaction runs it again, a few
    // times, from the start.
    std::string Atomically(const std::function<std::string()>& body, bool writer = true);
    // The "C-Error" text of the exception being handled, for the location.
    std::string Failed(const char* location);
    // The SQL text for the engine in use, where the two need their own.
    std::string_view ForEngine(std::string_view sqlite, std::string_view postgres) const;

    std::string ConnectDb();
    std::string StampModified();

    // Statements with every value bound as a parameter; statements are prepared once per
    // connection and reused.
    RowSet Query(std::string_view sql, const std::vector<Value>& params = {});
    int Execute(std::string_view sql, const std::vector<Value>& params = {});
    std::int64_t LastInsertId() const;
    Statement& Prepared(std::string_view sql);

    // ---- Private steps of the boats, people, series, entries and results operations

    // ---- Private steps of the scoring computations
    bool ResultsMissing(int RaceId);
    // A report's computations in one pass over the results: the race scoring gives every result
    // in scope with the points it stored, the discards mark theirs in the same list and the
    // standings are read from it.
    std::string ComputePoints(int RaceId, short Option, std::vector<ScopeResult>& Scope);
    std::string ComputeSeriesPoints(int RaceId, short Option, std::vector<ScopeResult>& Scope,
                                    RowSet& Discards);
    std::string GetCumulativeResults(int RaceId, short Option,
                                     const std::vector<ScopeResult>& Scope, RowSet& CumulativeRows);
    std::string MarkDiscards(int RaceId, short Option, std::vector<ScopeResult>& Scope,
                             RowSet& Discards);
    RowSet Standings(int RaceId, short Option, const std::vector<ScopeResult>& Scope);

    // ---- Private steps of the reports
    std::string XMLTransform(const std::string& Xml, const std::string& StyleSheetPath,
                             std::string& Output);
    std::string ReportRaceResults(short Option, const std::string& Letter, int Viewer,
                                  RowSet& ClassRows, const RowSet& ResultRows,
                                  const RowSet& CumulativeRows, const RowSet& SeriesPointsRows,
                                  std::string& Xml);
    std::string ReportXML(short Option, const std::string& Letter, int Viewer,
                          const RowSet& ClassRows, const RowSet& ResultRows,
                          const RowSet& CumulativeRows, std::string& Xml);
    std::string ReportSeriesXML(long long ClassId, const RowSet& CumulativeRows, std::string& Xml);
    std::string ReportEntries(int RaceId, short Option, RowSet& ClassRows,
                              const std::string& Letter, std::string& Xml);
    std::string ReportEntriesXML(short Option, const std::string& Letter, const RowSet& ClassRows,
                                 const RowSet& EntryRows, std::string& Xml);

    std::unique_ptr<Connection> Cn;
    bool Connected_ = false;
    std::unordered_map<std::string, std::unique_ptr<Statement>> statements_;
    ReportMenuTable ReportMenu_;
};

}  // namespace tb
