#include "data/Conversions.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "data/RunTimeFault.h"
#include "support/Checks.h"

namespace tb {
namespace {

TEST(ParseTypedDate, AcceptsWhatAnOfficerTypesAndRejectsTheRest) {
    for (const auto& row : test::DataFileRows("conversions/typed-dates.tsv")) {
        SCOPED_TRACE(row.at(0));
        const auto parsed = ParseTypedDate(row.at(0));
        if (row.at(1) == "-") {
            EXPECT_FALSE(parsed.has_value());
        } else {
            ASSERT_TRUE(parsed.has_value());
            EXPECT_EQ(ToStoredDateTime(*parsed), row.at(1));
        }
    }
}

TEST(StoredDateTime, RoundTripsAndRejectsOtherShapes) {
    const DateTime t = MakeDateTime(2024, 2, 29, 23, 59, 59);
    EXPECT_EQ(ToStoredDateTime(t), "2024-02-29 23:59:59");
    EXPECT_EQ(ParseStoredDateTime("2024-02-29 23:59:59"), t);
    EXPECT_EQ(ParseStoredDateTime("2024-02-29"), MakeDateTime(2024, 2, 29));
    EXPECT_FALSE(ParseStoredDateTime("2023-02-29 00:00:00"));
    EXPECT_FALSE(ParseStoredDateTime("29/02/2024"));
    EXPECT_FALSE(ParseStoredDateTime("2024-02-29T23:59:59"));
}

TEST(DateArithmetic, CrossesMonthAndYearEnds) {
    EXPECT_EQ(AddDays(MakeDateTime(2010, 4, 1), -1), MakeDateTime(2010, 3, 31));
    EXPECT_EQ(AddDays(MakeDateTime(2012, 3, 1), -1), MakeDateTime(2012, 2, 29));
    EXPECT_EQ(AddDays(MakeDateTime(2009, 12, 31, 23, 0), 1), MakeDateTime(2010, 1, 1, 23, 0));
    EXPECT_EQ(SecondsOfDay(MakeDateTime(2010, 1, 1, 14, 35, 12)), 14 * 3600 + 35 * 60 + 12);
    EXPECT_EQ(DatePart(MakeDateTime(2010, 1, 1, 14, 35, 12)), MakeDateTime(2010, 1, 1));
}

TEST(FormatDate, WritesEachFormatTheProgramUses) {
    const DateTime t = MakeDateTime(2005, 6, 5, 14, 35, 12);
    for (const auto& row : test::DataFileRows("conversions/date-formats.tsv"))
        EXPECT_EQ(FormatDate(t, row.at(0)), row.at(1));
}

TEST(FormatNumber, RoundsHalfAwayFromZeroOnTheDecimalText) {
    for (const auto& row : test::DataFileRows("conversions/number-formats.tsv")) {
        SCOPED_TRACE(row.at(1) + " of " + row.at(0));
        EXPECT_EQ(FormatNumber(std::strtod(row.at(0).c_str(), nullptr), row.at(1)), row.at(2));
    }
}

TEST(Rounding, HalfEvenForWholeSecondsHalfAwayForDisplay) {
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(3.5), 4);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
    EXPECT_EQ(RoundHalfEven(2.5000001), 3);
    EXPECT_EQ(RoundHalfAwayFromZero(2.5), 3);
    EXPECT_EQ(RoundHalfAwayFromZero(-2.5), -3);
    EXPECT_DOUBLE_EQ(RoundHalfAwayFromZero(1.005, 2), 1.01);
}

TEST(FormatText, PadsForFixedPitchColumnsAndDurationsHaveUnpaddedHours) {
    EXPECT_EQ(FormatText("123", "@@@@@"), "  123");
    EXPECT_EQ(FormatText("123", "@@@@@@@!"), "123    ");
    EXPECT_EQ(FormatText("GBR 12345678", "@@@@@@@!"), "GBR 12345678");
    EXPECT_EQ(FormatText("", "@@@"), "   ");
    EXPECT_EQ(FormatText("Zoë", "!@@@@@"), "Zoë  ");
    EXPECT_EQ(FormatDuration(0), "0:00:00");
    EXPECT_EQ(FormatDuration(3725), "1:02:05");
    EXPECT_EQ(FormatDuration(90061), "25:01:01");
}

TEST(ParseNumber, AcceptsPlainDecimalsOnly) {
    EXPECT_EQ(ParseNumber("0.985"), 0.985);
    EXPECT_EQ(ParseNumber(" -1.5 "), -1.5);
    EXPECT_EQ(ParseNumber("+2"), 2);
    EXPECT_EQ(ParseNumber(".5"), 0.5);
    EXPECT_EQ(ParseNumber("1e3"), 1000);
    for (const char* bad : {"", " ", ".", "1,5", "12a", "1e", "inf", "nan", "--1", "1.2.3"}) {
        EXPECT_FALSE(ParseNumber(bad).has_value()) << bad;
    }
}

TEST(WholeNumberConversion, OverflowsOutsideTheRangeOfALongAndForNaN) {
    EXPECT_EQ(Value(2.5).AsInt(), 2);
    EXPECT_EQ(Value(-9.1e18).AsInt(), -9'100'000'000'000'000'000);
    // NaN: the fuzzer found that it slipped past the range test into an undefined conversion.
    for (const double x : {1e19, -1e19, std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()}) {
        try {
            Value(x).AsInt();
            ADD_FAILURE() << x << " converted";
        } catch (const RunTimeFault& fault) {
            EXPECT_EQ(fault.number(), 6) << x;
        }
    }
}

TEST(OrdinaryConversion, WritesValuesAsAReportShowsThem) {
    EXPECT_EQ(ToText(Value(4080.0)), "4080");
    EXPECT_EQ(ToText(Value(2.5)), "2.5");
    EXPECT_EQ(ToText(Value(0.985)), "0.985");
    EXPECT_EQ(ToText(Value(0.1 + 0.2)), "0.3");
    EXPECT_EQ(ToText(Value(1e20)), "1E+20");
    EXPECT_EQ(ToText(Value(-0.0)), "0");
    EXPECT_EQ(ToText(Value(42)), "42");
    EXPECT_EQ(ToText(Value(true)), "True");
    EXPECT_EQ(ToText(Value()), "");
    EXPECT_EQ(ToText(Value(MakeDateTime(2010, 3, 31))), "31/03/2010");
    EXPECT_EQ(ToText(Value(MakeDateTime(2005, 6, 12, 14, 5))), "12/06/2005 14:05:00");
}

}  // namespace
}  // namespace tb
