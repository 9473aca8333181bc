-- What another window adds while it is open: a series with one race, and a new change time.
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (2, 'Autumn Series', 1, 1);
INSERT INTO Schedule (Series, RaceDate) VALUES (2, '2026-10-04 00:00:00');
UPDATE Settings SET Value = '02 Jun 2026 10:15' WHERE Parameter = 'LastModified';
