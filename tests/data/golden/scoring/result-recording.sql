-- A summer series of two races and two classes; boat 7 is entered in the series, not the race.
INSERT INTO HandicapType (Id, Description) VALUES (1, 'Club');
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate) VALUES
    (10, 1, 'Race 1', '2005-06-12 00:00:00'), (11, 1, 'Race 2', '2005-06-19 00:00:00');
INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES (1, 1, 'Class 1', 1), (2, 1, 'Class 2', 1);
INSERT INTO Boat (Id, SailNo, BoatName, FullSailNo) VALUES
    (1, 1234, 'Blue Moon', 'GBR 1234'), (2, 1234, 'Alpha', 'IRL 1234'), (3, 77, 'Bluebird', 'GBR 77'),
    (4, 8, 'Dark Blue', 'GBR 8'), (5, 9, 'O''Neil''s Pride', 'GBR 9'), (6, 10, 'Blue_Fin', 'GBR 10'),
    (7, 11, 'Bluewater', 'GBR 11');
INSERT INTO Entrant (Id, Series, Boat, Class) VALUES
    (1, 1, 1, 1), (2, 1, 2, 2), (3, 1, 3, 1), (4, 1, 4, 1), (5, 1, 5, 2), (6, 1, 6, 2), (7, 1, 7, 2);
INSERT INTO EntryList (Entrant, Schedule) VALUES (1, 10), (2, 10), (3, 10), (4, 10), (5, 10), (6, 10);
