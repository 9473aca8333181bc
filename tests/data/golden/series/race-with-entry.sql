-- A race of a series with one boat entered in it and one class start.
INSERT INTO HandicapType (Id, Description) VALUES (1, 'IRC');
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate) VALUES (1, 1, 'Race 1', '2002-06-18 00:00:00');
INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES (1, 1, 'C1', 1);
INSERT INTO People (Id, Firstname, Lastname) VALUES (1, 'Ann', 'Hara');
INSERT INTO Boat (Id, BoatName, FullSailNo, Owner) VALUES (1, 'Kestrel', 'GBR 1', 1);
INSERT INTO Entrant (Id, Series, Boat, Class, EntrantType, Entrant) VALUES (1, 1, 1, 1, 0, 1);
INSERT INTO EntryList (Entrant, Schedule) VALUES (1, 1);
INSERT INTO Start (Schedule, Class) VALUES (1, 1);
