-- What a refused import leaves as it was: the register's counts, the race finishes and the time
-- of the last change.
SELECT (SELECT count(*) FROM People) || ' ' || (SELECT count(*) FROM Boat) || ' '
    || (SELECT count(*) FROM BoatType) || ' ' || (SELECT count(*) FROM Handicap) || ' '
    || (SELECT count(*) FROM HandicapType) || ' '
    || (SELECT group_concat(FinishTime) FROM Results) || ' '
    || coalesce((SELECT Value FROM Settings WHERE Parameter = 'LastModified'), '-')
