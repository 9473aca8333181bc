-- Classes of the summer series: 1 Big (IRC, minimum 1.05), 2 Middle (IRC, 0.95), 3 Small (IRC,
-- none), 4 Club (Club, 0.5). Each boat, named after its case, is entered on 1 June 2002; its
-- TCF is rated from the date given (the boat rated in July has no TCF on its entry date).
INSERT INTO HandicapType (Id, Description) VALUES (1, 'IRC'), (2, 'Club');
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer', 1, 1);
INSERT INTO Class (Id, Series, ClassName, HandicapType, MinTCF) VALUES
    (1, 1, 'Big', 1, 1.05), (2, 1, 'Middle', 1, 0.95), (3, 1, 'Small', 1, NULL),
    (4, 1, 'Club', 2, 0.5);
INSERT INTO People (Id, Firstname, Lastname) VALUES (1, 'Ann', 'Lee');
INSERT INTO Boat (Id, BoatName, FullSailNo, Owner) VALUES
    (1, 'Exactly big', 'Exactly big', 1), (2, 'Above big', 'Above big', 1),
    (3, 'Middle', 'Middle', 1), (4, 'Below every minimum', 'Below every minimum', 1),
    (5, 'Already small', 'Already small', 1), (6, 'Rated after entry', 'Rated after entry', 1),
    (7, 'Unrated', 'Unrated', 1), (8, 'Club boat', 'Club boat', 1);
INSERT INTO Handicap (Boat, HandicapType, Handicap, EffectiveFrom) VALUES
    (1, 1, 1.05, '2002-01-01 00:00:00'), (2, 1, 1.2, '2002-01-01 00:00:00'),
    (3, 1, 0.99, '2002-01-01 00:00:00'), (4, 1, 0.8, '2002-01-01 00:00:00'),
    (5, 1, 0.9, '2002-01-01 00:00:00'), (6, 1, 1.2, '2002-07-01 00:00:00'),
    (8, 2, 0.6, '2002-01-01 00:00:00');
INSERT INTO Entrant (Id, Series, Boat, Class, EntrantType, Entrant, EntryDate) VALUES
    (1, 1, 1, 3, 0, 1, '2002-06-01 00:00:00'), (2, 1, 2, 2, 0, 1, '2002-06-01 00:00:00'),
    (3, 1, 3, 1, 0, 1, '2002-06-01 00:00:00'), (4, 1, 4, 2, 0, 1, '2002-06-01 00:00:00'),
    (5, 1, 5, 3, 0, 1, '2002-06-01 00:00:00'), (6, 1, 6, 3, 0, 1, '2002-06-01 00:00:00'),
    (7, 1, 7, 2, 0, 1, '2002-06-01 00:00:00'), (8, 1, 8, 4, 0, 1, '2002-06-01 00:00:00');
