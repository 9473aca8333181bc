-- A Tallyboard results database. Tables and columns keep the names and order that other tools
-- rely on. Date/Time columns hold text "YYYY-MM-DD HH:MM:SS" and are declared DATETIME; Yes/No
-- columns hold 0 or 1 and are declared BOOLEAN, so that a reader knows the value's type.

CREATE TABLE People (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Title TEXT COLLATE NOCASE,
    Firstname TEXT COLLATE NOCASE,
    Lastname TEXT COLLATE NOCASE,
    Address1 TEXT COLLATE NOCASE,
    Address2 TEXT COLLATE NOCASE,
    City TEXT COLLATE NOCASE,
    Postcode TEXT COLLATE NOCASE,
    Country TEXT COLLATE NOCASE,
    TelNo TEXT COLLATE NOCASE,
    FaxNo TEXT COLLATE NOCASE,
    DayTelNo TEXT COLLATE NOCASE,
    MobileNo TEXT COLLATE NOCASE,
    ClubMember BOOLEAN DEFAULT 0,
    EmailAddress TEXT COLLATE NOCASE
);

CREATE TABLE BoatType (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Model TEXT COLLATE NOCASE,
    LOA REAL DEFAULT 0,
    Draft REAL DEFAULT 0
);

CREATE TABLE Boat (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    BoatName TEXT COLLATE NOCASE,
    BoatType INTEGER,
    FullSailNo TEXT COLLATE NOCASE,
    SailNo INTEGER DEFAULT 0,
    Owner INTEGER
);

CREATE TABLE HandicapType (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Description TEXT COLLATE NOCASE
);

CREATE TABLE Handicap (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Boat INTEGER,
    HandicapType INTEGER,
    Handicap REAL DEFAULT 0,
    EffectiveFrom DATETIME,
    Expires DATETIME,
    ModifyDate DATETIME
);

CREATE TABLE Scoring (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Description TEXT COLLATE NOCASE
);

CREATE TABLE Points (
    Scoring INTEGER,
    Place INTEGER,
    Status INTEGER,
    Base INTEGER,
    Value REAL,
    MinValue REAL
);

CREATE TABLE DiscardSystem (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Description TEXT COLLATE NOCASE
);

CREATE TABLE Discards (
    DiscardSystem INTEGER,
    RacesRun INTEGER,
    Discards INTEGER
);

CREATE TABLE Series (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Title TEXT COLLATE NOCASE,
    SubseriesTitle TEXT COLLATE NOCASE,
    Scoring INTEGER,
    Discards INTEGER
);

CREATE TABLE Schedule (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Series INTEGER,
    RaceName TEXT COLLATE NOCASE,
    RaceDate DATETIME,
    InSubSeries BOOLEAN DEFAULT 0,
    Reference TEXT COLLATE NOCASE
);

CREATE TABLE Class (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Series INTEGER,
    ClassName TEXT COLLATE NOCASE,
    HandicapType INTEGER,
    MinTCF REAL
);

CREATE TABLE Entrant (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Series INTEGER,
    Boat INTEGER,
    Class INTEGER,
    EntrantType INTEGER,
    Entrant INTEGER,
    EntryDate DATETIME,
    NameOnResults TEXT COLLATE NOCASE,
    SeriesPoints REAL DEFAULT 0
);

CREATE TABLE EntryList (
    Entrant INTEGER,
    Schedule INTEGER
);

CREATE TABLE Start (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Schedule INTEGER,
    Class INTEGER,
    StartTime DATETIME,
    TopNote TEXT COLLATE NOCASE,
    Footnote TEXT COLLATE NOCASE
);

CREATE TABLE Results (
    Id INTEGER PRIMARY KEY AUTOINCREMENT,
    Schedule INTEGER,
    Entrant INTEGER,
    FinishTime DATETIME,
    Status INTEGER,
    PenaltyMins REAL DEFAULT 0,
    PenaltyPercent REAL DEFAULT 0,
    PenaltyPoints REAL DEFAULT 0,
    Notes TEXT COLLATE NOCASE,
    Handicap REAL DEFAULT 0,
    ElapsedTime REAL DEFAULT 0,
    CorrectedTime REAL DEFAULT 0,
    Points REAL DEFAULT 0
);

CREATE TABLE Status (
    Id INTEGER PRIMARY KEY,
    Code TEXT COLLATE NOCASE,
    Description TEXT COLLATE NOCASE
);

CREATE TABLE Settings (
    Parameter TEXT COLLATE NOCASE,
    Value TEXT COLLATE NOCASE
);

-- One row per entrant and race, per class and race, per boat and series, per parameter.
CREATE UNIQUE INDEX ResultsByRaceAndEntrant ON Results (Schedule, Entrant);
CREATE INDEX ResultsByEntrant ON Results (Entrant);
CREATE UNIQUE INDEX EntryListByEntrantAndRace ON EntryList (Entrant, Schedule);
CREATE INDEX EntryListByRace ON EntryList (Schedule);
-- Covers a race's entry list without visiting the table: the scoring reads whole seasons of them.
CREATE INDEX EntryListByRaceAndEntrant ON EntryList (Schedule, Entrant);
CREATE UNIQUE INDEX StartByRaceAndClass ON Start (Schedule, Class);
CREATE UNIQUE INDEX EntrantByBoatAndSeries ON Entrant (Series, Boat);
CREATE INDEX EntrantByBoat ON Entrant (Boat);
CREATE INDEX EntrantByClass ON Entrant (Class);
CREATE UNIQUE INDEX SettingsByParameter ON Settings (Parameter);
CREATE INDEX ScheduleBySeriesAndDate ON Schedule (Series, RaceDate);
CREATE INDEX ClassBySeries ON Class (Series);
CREATE INDEX HandicapByBoat ON Handicap (Boat, HandicapType);
CREATE INDEX BoatByOwner ON Boat (Owner);
CREATE INDEX BoatByModel ON Boat (BoatType);
CREATE INDEX PointsByScoring ON Points (Scoring, Place, Status);
CREATE INDEX DiscardsBySystem ON Discards (DiscardSystem);

-- Result statuses, ordered by code as the results window lists them: a finish sorts last.
INSERT INTO Status (Id, Code, Description) VALUES
    (1, 'BFD', 'Black flag disqualification'),
    (2, 'DNC', 'Did not come to the starting area'),
    (3, 'DNE', 'Disqualification not excludable'),
    (4, 'DNF', 'Did not finish'),
    (5, 'DNS', 'Did not start'),
    (6, 'DSQ', 'Disqualified'),
    (7, 'OCS', 'On the course side at the start'),
    (8, 'RAF', 'Retired after finishing'),
    (9, 'OK', 'Finished');

-- A low-points system ready to use: places 1 to 7 score 1 to 7 (later places by the place
-- itself), every non-finishing outcome scores the number of entrants + 1.
INSERT INTO Scoring (Id, Description) VALUES (1, 'Low points');
INSERT INTO Points (Scoring, Place, Status, Base, Value, MinValue) VALUES
    (1, NULL, 1, 0, 1, 0),
    (1, NULL, 2, 0, 1, 0),
    (1, NULL, 3, 0, 1, 0),
    (1, NULL, 4, 0, 1, 0),
    (1, NULL, 5, 0, 1, 0),
    (1, NULL, 6, 0, 1, 0),
    (1, NULL, 7, 0, 1, 0),
    (1, NULL, 8, 0, 1, 0),
    (1, 1, 9, NULL, 1, NULL),
    (1, 2, 9, NULL, 2, NULL),
    (1, 3, 9, NULL, 3, NULL),
    (1, 4, 9, NULL, 4, NULL),
    (1, 5, 9, NULL, 5, NULL),
    (1, 6, 9, NULL, 6, NULL),
    (1, 7, 9, NULL, 7, NULL);

INSERT INTO DiscardSystem (Id, Description) VALUES (1, 'One after 4, two after 8');
INSERT INTO Discards (DiscardSystem, RacesRun, Discards) VALUES
    (1, 4, 1),
    (1, 8, 2),
    (1, NULL, NULL),
    (1, NULL, NULL),
    (1, NULL, NULL);

-- One handicap type, so that boats can be given handicaps on the club's first evening.
INSERT INTO HandicapType (Description) VALUES ('TCF');

INSERT INTO Settings (Parameter, Value) VALUES
    ('Version', '1.0'),
    ('Header', NULL),
    ('Comment', NULL),
    ('Footnote', NULL);
