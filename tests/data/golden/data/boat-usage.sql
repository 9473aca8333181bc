-- Two series titled Spring, one Autumn and one without a race; classes of handicap system 1 in
-- three of them.
INSERT INTO Series (Id, Title) VALUES (1, 'Spring'), (2, 'Autumn'), (3, 'Empty'), (4, 'Spring');
INSERT INTO Schedule (Series, RaceDate) VALUES (1, '2010-04-01 00:00:00'),
    (1, '2010-03-01 00:00:00'), (2, '2010-09-01 00:00:00'), (4, '2009-04-01 00:00:00');
INSERT INTO Class (Series, ClassName, HandicapType) VALUES (1, 'Fast', 1), (3, 'Slow', 1),
    (4, 'Fast', 1);
