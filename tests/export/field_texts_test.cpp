// SPDX-License-Identifier: MIT
#include "export/field_texts.h"

#include <gtest/gtest.h>

#include <cmath>

namespace hearthmark::exporting {

TEST(AppendNumber, WritesTheFewestDigitsThatReadBackWithAnExponentOnlyFarFromOne) {
    std::string bare;
    std::string withFraction;
    for (const double number :
         {0.0, -0.0, 1500.0, 1e15, -9999999999999998.0, 1e16, 1e300, 0.1, 0.1 + 0.2, 725760000.123,
          1e-5, -1.2345678901234568e-5, 9.9e-6, 5e-324, HUGE_VAL, -HUGE_VAL, -std::nan("")}) {
        appendNumber(bare += ' ', number, WholeNumber::bare);
        appendNumber(withFraction += ' ', number, WholeNumber::withFraction);
    }
    const std::string same =
        " 1e+16 1e+300 0.1 0.30000000000000004 725760000.123 0.00001 -0.000012345678901234568 "
        "9.9e-06 5e-324 inf -inf nan";
    EXPECT_EQ(bare, " 0 -0 1500 1000000000000000 -9999999999999998" + same);
    EXPECT_EQ(withFraction, " 0.0 -0.0 1500.0 1000000000000000.0 -9999999999999998.0" + same);
}

TEST(AppendDateTime, CutsFractionsOffInEveryYearThereIs) {
    std::string text;
    for (const double date :
         {725794200.999, -0.25, -1.75, 730902896.0, -26524800.0, -3182198400.5, -3182198400.0,
          252423993599.5, 252423993600.0, 326438669350.0, 9.99e17, -63113904000.0, -63113904000.5,
          -63171964800.0, -452684505601.0, 1e18, -1e300, HUGE_VAL, std::nan("")}) {
        appendDateTime(text += ' ', base::Date(base::Seconds(date)));
    }
    EXPECT_EQ(text,
              " 2024-01-01T09:30:00Z 2000-12-31T23:59:59Z 2000-12-31T23:59:58Z 2024-02-29T12:34:56Z"
              " 2000-02-29T00:00:00Z 1900-02-28T23:59:59Z 1900-03-01T00:00:00Z 9999-12-31T23:59:59Z"
              " 10000-01-01T00:00:00Z 12345-06-07T08:09:10Z 31657051769-04-22T00:00:00Z"
              " 0001-01-01T00:00:00Z 0000-12-31T23:59:59Z -0001-03-01T00:00:00Z"
              " -12345-12-31T23:59:59Z    ");
}

}  // namespace hearthmark::exporting
