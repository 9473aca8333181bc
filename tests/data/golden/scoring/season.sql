-- A season worked by hand: two classes, five races of May 2010, the seeded "Low points" and
-- discard systems (places 1-7 score 1-7, every other outcome entrants + 1; one discard from four
-- races run). Every boat is a Laser with a helm and a handicap of 1 valid all season; an
-- entrant's Id is its boat's, its helm's and its sail number. Charlie (type 1) enters the
-- sub-series only, Delta (type 3) the series only; races 3 and 5 are the sub-series.
INSERT INTO HandicapType (Id, Description) VALUES (1, 'Club');
INSERT INTO BoatType (Id, Model, LOA, Draft) VALUES (1, 'Laser', 4.2, 0.8);
INSERT INTO Series (Id, Title, SubseriesTitle, Scoring, Discards) VALUES
    (1, 'Summer', 'Evenings', 1, 1);
INSERT INTO Class (Id, Series, ClassName, HandicapType, MinTCF) VALUES
    (1, 1, 'A', 1, 0), (2, 1, 'B', 1, 0);
INSERT INTO People (Id, Firstname, Lastname) VALUES
    (1, 'Helm', 'No1'), (2, 'Helm', 'No2'), (3, 'Helm', 'No3'), (4, 'Helm', 'No4'),
    (5, 'Helm', 'No5'), (6, 'Helm', 'No6'), (7, 'Helm', 'No7');
INSERT INTO Boat (Id, BoatName, BoatType, FullSailNo, SailNo, Owner) VALUES
    (1, 'Alpha', 1, 'GBR 1', 1, 1),
    (2, 'Bravo', 1, 'GBR 2', 2, 2),
    (3, 'Charlie', 1, 'GBR 3', 3, 3),
    (4, 'Delta', 1, 'GBR 4', 4, 4),
    (5, 'Echo', 1, 'GBR 5', 5, 5),
    (6, 'Foxtrot', 1, 'GBR 6', 6, 6),
    (7, 'Golf', 1, 'GBR 7', 7, 7);
INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom) VALUES
    (1, 1, 1, '2000-01-01 00:00:00'), (2, 1, 1, '2000-01-01 00:00:00'),
    (3, 1, 1, '2000-01-01 00:00:00'), (4, 1, 1, '2000-01-01 00:00:00'),
    (5, 1, 1, '2000-01-01 00:00:00'), (6, 1, 1, '2000-01-01 00:00:00'),
    (7, 1, 1, '2000-01-01 00:00:00');
INSERT INTO Entrant (Id, Series, Boat, Class, EntrantType, Entrant) VALUES
    (1, 1, 1, 1, 0, 1), (2, 1, 2, 1, 0, 2), (3, 1, 3, 1, 1, 3), (4, 1, 4, 1, 3, 4),
    (5, 1, 5, 2, 0, 5), (6, 1, 6, 2, 0, 6), (7, 1, 7, 2, 0, 7);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate, InSubSeries) VALUES
    (1, 1, 'Race 1', '2010-05-01 00:00:00', 0),
    (2, 1, 'Race 2', '2010-05-02 00:00:00', 0),
    (3, 1, 'Race 3', '2010-05-03 00:00:00', 1),
    (4, 1, 'Race 4', '2010-05-04 00:00:00', 0),
    (5, 1, 'Race 5', '2010-05-05 00:00:00', 1);
-- Golf is not on the entry list of race 2.
INSERT INTO EntryList (Entrant, Schedule) SELECT Entrant.Id, Schedule.Id FROM Entrant, Schedule
    WHERE Entrant.Id<>7 OR Schedule.Id<>2;
-- Both classes start at 10:00, but class A did not start in race 4.
INSERT INTO Start (Schedule, Class, StartTime) VALUES
    (1, 1, '2010-05-01 10:00:00'), (1, 2, '2010-05-01 10:00:00'),
    (2, 1, '2010-05-02 10:00:00'), (2, 2, '2010-05-02 10:00:00'),
    (3, 1, '2010-05-03 10:00:00'), (3, 2, '2010-05-03 10:00:00'),
    (4, 1, NULL), (4, 2, '2010-05-04 10:00:00'),
    (5, 1, '2010-05-05 10:00:00'), (5, 2, '2010-05-05 10:00:00');
-- The finishes (10:00 plus the elapsed time) and statuses: race, entrant, status, finish, then
-- the penalty minutes, percent and places (-1: a place of redress).
INSERT INTO Results (Schedule, Entrant, Status, FinishTime, PenaltyMins, PenaltyPercent,
    PenaltyPoints) VALUES
    -- Race 1. A: 1 Alpha, 2 Bravo, 3 Charlie, Delta DNF. B: Echo and Foxtrot tie, Golf DNF.
    (1, 1, 9, '2010-05-01 11:00:00', 0, 0, 0),
    (1, 2, 9, '2010-05-01 11:01:40', 0, 0, 0),
    (1, 3, 9, '2010-05-01 11:03:20', 0, 0, 0),
    (1, 4, 4, NULL, 0, 0, 0),
    (1, 5, 9, '2010-05-01 11:00:00', 0, 0, 0),
    (1, 6, 9, '2010-05-01 11:00:00', 0, 0, 0),
    (1, 7, 4, NULL, 0, 0, 0),
    -- Race 2. Bravo 3600 + 10% = 3960; Charlie 3500 + 5 minutes = 3800.
    (2, 1, 9, '2010-05-02 11:00:50', 0, 0, 0),
    (2, 2, 9, '2010-05-02 11:00:00', 0, 10, 0),
    (2, 3, 9, '2010-05-02 10:58:20', 5, 0, 0),
    (2, 4, 9, '2010-05-02 11:01:40', 0, 0, 0),
    (2, 5, 9, '2010-05-02 11:01:40', 0, 0, 0),
    (2, 6, 9, '2010-05-02 11:00:50', 0, 0, 0),
    -- Race 3: Alpha and Bravo tie for first.
    (3, 1, 9, '2010-05-03 11:00:00', 0, 0, 0),
    (3, 2, 9, '2010-05-03 11:00:00', 0, 0, 0),
    (3, 3, 9, '2010-05-03 11:01:40', 0, 0, 0),
    (3, 4, 9, '2010-05-03 11:03:20', 0, 0, 0),
    (3, 5, 9, '2010-05-03 11:00:00', 0, 0, 0),
    (3, 6, 9, '2010-05-03 11:01:40', 0, 0, 0),
    (3, 7, 9, '2010-05-03 11:03:20', 0, 0, 0),
    -- Race 4: class A did not start; Foxtrot DNS.
    (4, 5, 9, '2010-05-04 11:00:00', 0, 0, 0),
    (4, 6, 5, NULL, 0, 0, 0),
    (4, 7, 9, '2010-05-04 10:58:20', 0, 0, 0),
    -- Race 5: Alpha 2 penalty places, Bravo DNE (never discarded), Delta 1 place redress.
    (5, 1, 9, '2010-05-05 11:05:00', 0, 0, 2),
    (5, 2, 3, NULL, 0, 0, 0),
    (5, 3, 9, '2010-05-05 10:58:20', 0, 0, 0),
    (5, 4, 9, '2010-05-05 11:01:40', 0, 0, -1),
    (5, 5, 9, '2010-05-05 11:03:20', 0, 0, 0),
    (5, 6, 9, '2010-05-05 11:00:00', 0, 0, 0),
    (5, 7, 9, '2010-05-05 11:01:40', 0, 0, 0);
