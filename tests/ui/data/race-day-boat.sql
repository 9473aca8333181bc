-- One boat entered in the series and the race of race-day.sql, with a helm of its own and a
-- handicap of 1.000 valid all season. The test fills in, in turn, the boat's number (its Id and
-- its helm's, entrant's), its name, its full sail number, the number in it and its class.
INSERT INTO People (Id, Firstname, Lastname) VALUES (%1, 'Helm', 'No %1');
INSERT INTO Boat (Id, BoatName, FullSailNo, SailNo, BoatType, Owner)
    VALUES (%1, '%2', '%3', %4, 1, %1);
INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom)
    VALUES (%1, 1, 1.0, '2000-01-01 00:00:00');
INSERT INTO Entrant (Id, Series, Boat, Class, EntrantType, Entrant) VALUES (%1, 1, %1, %5, 0, %1);
INSERT INTO EntryList (Entrant, Schedule) VALUES (%1, 10);
