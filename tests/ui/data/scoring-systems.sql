-- "Average" sorts before the seeded "Low points": its DSQ group counts starters and scores 2
-- more with at least 5; its DNF group scores 10.5. Three series use the systems.
INSERT INTO Scoring (Id, Description) VALUES (2, 'Average');
INSERT INTO Points (Scoring, Place, Status, Base, Value, MinValue)
    SELECT 2, Place, Status, Base, Value * 2, MinValue FROM Points WHERE Scoring = 1;
UPDATE Points SET Base = 1, Value = 2, MinValue = 5 WHERE Scoring = 2 AND Status IN (1, 3, 6);
UPDATE Points SET Value = 10.5 WHERE Scoring = 2 AND Status IN (4, 5, 7, 8);
INSERT INTO DiscardSystem (Id, Description) VALUES (2, 'None');
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES
    (1, 'Spring Series', 1, 1), (2, 'Autumn Series', 1, 1), (3, 'No races', 2, 2);
INSERT INTO Schedule (Series, RaceDate) VALUES (1, '2009-04-10 00:00:00'),
    (1, '2009-05-10 00:00:00'), (2, '2010-09-01 00:00:00');
