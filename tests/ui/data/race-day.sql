-- A race evening: series "Summer Series" (Id 1) with "Class 1" and "Class 2" on one handicap
-- type, race "Race 1" on 12 Jun 2005 (Id 10); boats are of the one model, Laser.
INSERT INTO HandicapType (Id, Description) VALUES (1, 'Club');
INSERT INTO Series (Id, Title, SubseriesTitle, Scoring, Discards)
    VALUES (1, 'Summer Series', 'Evenings', 1, 1);
INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES
    (1, 1, 'Class 1', 1), (2, 1, 'Class 2', 1);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate, InSubSeries)
    VALUES (10, 1, 'Race 1', '2005-06-12 00:00:00', 0);
INSERT INTO BoatType (Id, Model) VALUES (1, 'Laser');
