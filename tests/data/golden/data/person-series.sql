-- Person 1 helms in three series; "No races" has no race and Summer's first race is in June.
INSERT INTO Series (Id, Title) VALUES (1, 'Spring'), (2, 'No races'), (3, 'Summer');
INSERT INTO Schedule (Series, RaceDate) VALUES (1, '2010-04-01 00:00:00'),
    (3, '2010-07-01 00:00:00'), (3, '2010-06-01 00:00:00');
INSERT INTO Entrant (Series, Boat, Entrant) VALUES (1, 1, 1), (2, 1, 1), (3, 1, 1);
INSERT INTO Boat (BoatName, Owner) VALUES ('Swift', 1);
