-- The main window's season: "Summer Series" (Id 1) with its race on 7 June 2026 (Id 1), one
-- class started at 18:30 (so the results window does not open the start times window itself),
-- and the data stamped as changed on 1 June.
INSERT INTO Series (Id, Title, Scoring, Discards) VALUES (1, 'Summer Series', 1, 1);
INSERT INTO Schedule (Id, Series, RaceName, RaceDate) VALUES (1, 1, 'Race 1', '2026-06-07 00:00:00');
INSERT INTO HandicapType (Id, Description) VALUES (1, 'Club');
INSERT INTO Class (Id, Series, ClassName, HandicapType) VALUES (1, 1, 'Cruisers', 1);
INSERT INTO Start (Schedule, Class, StartTime) VALUES (1, 1, '2026-06-07 18:30:00');
INSERT INTO Settings (Parameter, Value) VALUES ('LastModified', '01 Jun 2026 09:00');
