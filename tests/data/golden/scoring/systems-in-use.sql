-- Two series titled Frostbite use the seeded systems, as do Regatta's scoring and a series
-- without a race; Regatta has discard system 2.
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Frostbite', 1, 1),
    (2, 'Frostbite', 1, 1), (3, 'Regatta', 1, 2), (4, 'Unscheduled', 1, 1);
INSERT INTO Schedule (Series, RaceDate) VALUES (1, '2010-01-10 00:00:00'),
    (2, '2009-01-11 00:00:00'), (2, '2009-02-11 00:00:00'), (3, '2010-07-01 00:00:00');
