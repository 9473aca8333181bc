-- A June series: races on 10/06 and 24/06 in the main series only, 17/06 and 01/07 also in the
-- sub-series; one IRC class; Avocet (Bob Smith's, IRC 0.950 from 15/06/02) is entered in 10/06
-- and 24/06; Kestrel (Ann O'Hara's) is not entered.
INSERT INTO HandicapType (Description) VALUES ('IRC');
INSERT INTO People (Firstname, Lastname) VALUES ('Ann', 'O''Hara'), ('Bob', 'Smith');
INSERT INTO Boat (BoatName, FullSailNo, Owner) VALUES ('Kestrel', 'GBR 1234', 1),
    ('Avocet', 'IRL 7', 2);
INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom) VALUES
    (2, 1, 0.95, '2002-06-15 00:00:00');
INSERT INTO Series (Title, SubseriesTitle, Scoring, Discards) VALUES
    ('June Evenings', 'Wednesdays', 1, 1);
INSERT INTO Schedule (Series, RaceName, RaceDate, InSubSeries) VALUES
    (1, 'Race 1', '2002-06-10 00:00:00', 0), (1, 'Race 2', '2002-06-17 00:00:00', 1),
    (1, 'Race 3', '2002-06-24 00:00:00', 0), (1, 'Race 4', '2002-07-01 00:00:00', 1);
INSERT INTO Class (Series, ClassName, HandicapType, MinTCF) VALUES (1, 'Class 1', 1, NULL);
INSERT INTO Entrant (Series, Boat, Class, EntrantType, Entrant, EntryDate) VALUES
    (1, 2, 1, 3, 2, '2002-06-01 00:00:00');
INSERT INTO EntryList (Entrant, Schedule) VALUES (1, 1), (1, 3);
