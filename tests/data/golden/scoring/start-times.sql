-- Two races of a summer series and a winter series; the classes are inserted out of name order,
-- so that the order by name is seen. Entrant 6 has no class.
INSERT INTO HandicapType (Id, Description) VALUES (1, 'Club');
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1), (2, 'Winter', 1, 1);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate) VALUES
    (10, 1, 'Race 1', '2005-06-12 00:00:00'), (11, 1, 'Race 2', '2005-06-19 00:00:00');
INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES
    (1, 1, 'Keelboats', 1), (2, 1, 'Dinghies', 1), (3, 2, 'Winter fleet', 1);
INSERT INTO Boat (Id, BoatName, FullSailNo, SailNo) VALUES (1, 'Alpha', 'X 1', 1), (2, 'Bravo', 'X 2', 2);
INSERT INTO Entrant (Id, Series, Boat, Class) VALUES (5, 1, 1, 1), (6, 1, 2, NULL);
