-- Everything that tells one season from another.
SELECT (SELECT group_concat(BoatName || Handicap, ',') FROM Boat JOIN Handicap ON Boat = Boat.Id)
    || (SELECT group_concat(ifnull(FinishTime, '-') || Status || Notes, ',') FROM Results)
    || (SELECT group_concat(Entrant || ':' || Schedule, ',') FROM EntryList)
