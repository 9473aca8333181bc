-- Four series, one without races; two races of one day (one in the sub-series) whose names
-- differ in case, and a race of no series.
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES
    (1, 'Winter', 1, 1), (2, 'Summer', 1, 1), (3, 'Autumn', 1, 1), (4, 'Other', 1, 1);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate, InSubSeries) VALUES
    (1, 2, 'b race', '2002-06-18 00:00:00', 1),
    (2, 2, 'A race', '2002-06-18 00:00:00', 0),
    (3, 2, 'Early', '2002-05-01 00:00:00', 0),
    (4, 1, 'Race 1', '2001-12-02 00:00:00', 0),
    (5, 1, 'Race 2', '2002-01-06 00:00:00', 0),
    (6, 4, 'Elsewhere', '2002-06-01 00:00:00', 0),
    (7, 99, 'Orphan', '1999-05-05 00:00:00', 0);
