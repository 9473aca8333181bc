-- Two more troubles for the problem page, besides the visitor's lapsed handicap: "Cat <One>"
-- with two handicaps in force on the race date, and "Lonely" entered in class 0 (no specific
-- class); the handicap type's name needs escaping on the page.
INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom)
    SELECT Boat, HandicapType, 1.1, '2024-06-01 00:00:00' FROM Handicap
    WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Cat <One>');
INSERT INTO Class (Id, Series, ClassName, HandicapType)
    SELECT 0, Series, 'Any', HandicapType FROM Class WHERE ClassName = 'Fleet';
UPDATE Entrant SET Class = 0 WHERE Boat = (SELECT Id FROM Boat WHERE BoatName = 'Lonely');
UPDATE HandicapType SET Description = 'O''Neil''s & <Club>'
    WHERE Id = (SELECT HandicapType FROM Class WHERE ClassName = 'Fleet');
