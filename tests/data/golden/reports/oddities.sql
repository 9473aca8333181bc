-- What other programs and careless typing leave in a club's file: a helm without a first name
-- (Fish & Chips), one without a family name (Tern), a boat without a model (Cat Two), an entrant
-- of type 2 (Lonely), race 2 in the sub-series stored as -1, and Fish & Chips rated 1.25 with a
-- finish that gives a corrected time of an exact half second (4252.5 s), Cat Two numbered boat 0
-- as another program may number one (the only standing of its class, so both first and last),
-- and a series without a sub-series title.
UPDATE People SET Firstname = NULL WHERE Id = (SELECT Entrant FROM Entrant
    WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Fish & Chips'));
UPDATE People SET Lastname = NULL WHERE Id = (SELECT Entrant FROM Entrant
    WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Tern'));
UPDATE Boat SET BoatType = NULL WHERE BoatName = 'Cat Two';
UPDATE Entrant SET EntrantType = 2 WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Lonely');
UPDATE Schedule SET InSubSeries = -1 WHERE RaceName = 'Race 2';
UPDATE Handicap SET Handicap = 1.25 WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Fish & Chips');
UPDATE Results SET FinishTime = '2024-06-22 10:56:42'
    WHERE Schedule = (SELECT Id FROM Schedule WHERE RaceName = 'Race 2')
    AND Entrant = (SELECT Id FROM Entrant
        WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Fish & Chips'));
UPDATE Handicap SET Boat = 0 WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Cat Two');
UPDATE Entrant SET Boat = 0 WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Cat Two');
UPDATE Boat SET Id = 0 WHERE BoatName = 'Cat Two';
UPDATE Series SET SubseriesTitle = NULL;
