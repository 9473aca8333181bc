-- One series with four races in June 2002, one class of type IRC and three boats owned by
-- Ann O'Hara, none entered yet. Kestrel's IRC handicaps: 0.97 until 5 June, 0.95 from 10 to
-- 20 June; its Club handicap is of another type than its class's and never counts. Avocet's IRC
-- handicap, 1.02 from 15 June, has no end.
INSERT INTO HandicapType (Id, Description) VALUES (1, 'IRC'), (2, 'Club');
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate, InSubSeries) VALUES
    (1, 1, 'Race 4', '2002-06-04 00:00:00', 0), (2, 1, 'Race 11', '2002-06-11 00:00:00', 0),
    (3, 1, 'Race 18', '2002-06-18 00:00:00', 0), (4, 1, 'Race 25', '2002-06-25 00:00:00', 0);
INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES (1, 1, 'Class 1', 1);
INSERT INTO People (Id, Firstname, Lastname) VALUES (1, 'Ann', 'O''Hara');
INSERT INTO Boat (Id, BoatName, FullSailNo, Owner) VALUES
    (1, 'Kestrel', 'GBR 1', 1), (2, 'kestrel', 'GBR 0', 1), (3, 'Avocet', 'GBR 9', 1);
INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom, Expires) VALUES
    (1, 1, 0.95, '2002-06-10 00:00:00', '2002-06-20 00:00:00'),
    (1, 1, 0.97, NULL, '2002-06-05 00:00:00'),
    (1, 2, 1.2, NULL, NULL),
    (3, 1, 1.02, '2002-06-15 00:00:00', NULL);
