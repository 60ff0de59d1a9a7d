// An archive entry's date, a FILETIME (steps of 100 ns since 1601, UTC): as the listing names its
// day and second, and in nanoseconds since 1970 for the extracted file. The calendar of the C++
// library says what every day is called.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdio>

#include "store/slf.h"

namespace {

constexpr std::int64_t Seconds_From_1601_To_1970 = 11644473600;

std::uint64_t Filetime(std::int64_t seconds_since_1970, std::int64_t steps) {
  return static_cast<std::uint64_t>(seconds_since_1970 + Seconds_From_1601_To_1970) * 10000000 +
         static_cast<std::uint64_t>(steps);
}

TEST(Slf_Dates, EveryDayFrom1601To2400ReadsAsTheCalendarHasIt) {
  using namespace std::chrono;
  const sys_days first = year{1601} / January / 1, last = year{2400} / December / 31;
  for (sys_days day = first; day <= last; day += days{1}) {
    const std::int64_t day_number = day.time_since_epoch().count();
    // A second of the day that differs from day to day, so that every hour, minute and second comes.
    const std::int64_t second = ((day_number * 7919) % 86400 + 86400) % 86400;
    const std::int64_t since_1970 = day_number * 86400 + second;
    const std::int64_t steps = (day_number % 10000000 + 10000000) % 10000000;
    const year_month_day date{day};
    char expected[48];
    std::snprintf(expected, sizeof expected, "%04d-%02u-%02u %02lld:%02lld:%02lld", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<long long>(second / 3600), static_cast<long long>(second / 60 % 60),
                  static_cast<long long>(second % 60));
    ASSERT_EQ(slf::Date_Text(Filetime(since_1970, steps)), expected);
    // Nanoseconds since 1970 reach from 1677 to 2262: from the first whole second to the last.
    const bool held = since_1970 >= INT64_MIN / 1000000000 && since_1970 < INT64_MAX / 1000000000;
    ASSERT_EQ(slf::Unix_Nanoseconds(Filetime(since_1970, steps)),
              held ? std::optional(since_1970 * 1000000000 + steps * 100) : std::nullopt)
        << expected;
  }
}

// No date at 0; the latest date that nanoseconds since 1970 can hold, and none after it.
TEST(Slf_Dates, TheEnds) {
  EXPECT_EQ(slf::Date_Text(0), "no date");
  EXPECT_EQ(slf::Unix_Nanoseconds(0), std::nullopt);
  const std::int64_t latest = INT64_MAX / 1000000000 - 1;
  EXPECT_EQ(slf::Unix_Nanoseconds(Filetime(latest, 9999999)), latest * 1000000000 + 999999900);
  EXPECT_EQ(slf::Unix_Nanoseconds(Filetime(latest + 1, 0)), std::nullopt);
  EXPECT_EQ(slf::Unix_Nanoseconds(UINT64_MAX), std::nullopt);
}

}  // namespace
