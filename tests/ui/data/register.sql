-- A small club register: three people, three models, three boats with two handicaps, and one
-- series with a race that Blue Moon and John Smith entered.
INSERT INTO People (Id, Firstname, Lastname, City, ClubMember) VALUES
    (1, 'Ann', 'Adams', 'Poole', 1), (2, 'John', 'Smith', 'Hamble', 0),
    (3, 'Jim', 'Smithers', 'Cowes', 0);
INSERT INTO BoatType (Id, Model, LOA, Draft) VALUES (1, 'Sigma 33', 10.1, 1.85),
    (2, 'Laser', 4.2, 0), (3, 'Unused', 0, 1.2);
INSERT INTO Boat (Id, BoatName, BoatType, FullSailNo, SailNo, Owner) VALUES
    (1, 'Aquila', 1, 'GBR 1234', 1234, 1), (2, 'Blue Moon', 1, 'K 77', 77, 2),
    (3, 'Zephyr', 2, '200', 200, 2);
INSERT INTO HandicapType (Id, Description) VALUES (1, 'IRC'), (2, 'PY');
INSERT INTO Handicap (Id, Boat, HandicapType, Handicap, EffectiveFrom, Expires) VALUES
    (1, 1, 1, 0.985, '2009-01-01 00:00:00', '2009-12-31 00:00:00'),
    (2, 1, 2, 1.02, '2010-01-01 00:00:00', NULL);
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Spring Series', 1, 1);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate) VALUES (1, 1, 'Race 1', '2010-04-10 00:00:00');
INSERT INTO Entrant (Id, Series, Boat, Entrant, EntrantType) VALUES (1, 1, 2, 2, 0);
