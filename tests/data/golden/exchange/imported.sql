# Everything an import writes, one query a line, each giving one line a record (its columns
# joined by " | ", Null as "-") in an order that does not depend on Ids.
SELECT Title, RaceName, RaceDate FROM Series JOIN Schedule ON Series.Id = Schedule.Series ORDER BY Series.Id, Schedule.Id
SELECT Class.Series, ClassName, Description FROM Class JOIN HandicapType ON HandicapType.Id = Class.HandicapType ORDER BY Class.Id
SELECT Class.Series, RaceName, ClassName, StartTime FROM Start JOIN Class ON Class.Id = Start.Class JOIN Schedule ON Schedule.Id = Start.Schedule ORDER BY Start.Schedule, Class.Id
SELECT BoatName, FullSailNo, SailNo, Model, Firstname || '/' || Lastname FROM Boat JOIN BoatType ON BoatType.Id = Boat.BoatType JOIN People ON People.Id = Boat.Owner ORDER BY Boat.Id
SELECT BoatName, Description, Handicap, EffectiveFrom, Expires FROM Handicap JOIN Boat ON Boat.Id = Handicap.Boat JOIN HandicapType ON HandicapType.Id = Handicap.HandicapType ORDER BY Handicap.Id
SELECT Entrant.Series, BoatName, ClassName, EntrantType, EntryDate, (SELECT count(*) FROM EntryList WHERE Entrant = Entrant.Id) FROM Entrant JOIN Boat ON Boat.Id = Entrant.Boat JOIN Class ON Class.Id = Entrant.Class ORDER BY Entrant.Id
SELECT RaceName, BoatName, FinishTime, Code FROM Results JOIN Schedule ON Schedule.Id = Results.Schedule JOIN Entrant ON Entrant.Id = Results.Entrant JOIN Boat ON Boat.Id = Entrant.Boat JOIN Status ON Status.Id = Results.Status ORDER BY Results.Id
SELECT Description, Status, Place, Base, Value, MinValue FROM Points JOIN Scoring ON Scoring.Id = Points.Scoring WHERE Scoring.Id > 1 ORDER BY Status, Place
SELECT Description, RacesRun, Discards FROM Discards JOIN DiscardSystem ON DiscardSystem.Id = DiscardSystem WHERE DiscardSystem.Id > 1 ORDER BY DiscardSystem.Id, RacesRun IS NULL, RacesRun
