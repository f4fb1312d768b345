#include "model/Timestamp.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace morvak {

using namespace std::chrono;
using namespace Qt::StringLiterals;

namespace {

constexpr sys_days reference = 2001y / January / 1d;

/// The moments that four digits of a year can tell.
constexpr double firstSecond = duration<double>(sys_days(0y / January / 1d) - reference).count();
constexpr double endSecond = duration<double>(sys_days(year(10'000) / January / 1d) - reference).count();

bool isIsoMoment(double seconds)
{
    return seconds >= firstSecond && seconds < endSecond;
}

/// In `form`, a nought stands for any digit.
bool hasForm(QStringView text, QLatin1StringView form)
{
    return std::equal(text.begin(), text.end(), form.begin(), form.end(), [](QChar c, char wanted) {
        return wanted == '0' ? c >= u'0' && c <= u'9' : c == QLatin1Char(wanted);
    });
}

int number(QStringView text, qsizetype at, qsizetype length = 2)
{
    return text.sliced(at, length).toInt();
}

/// A time of day, `HH:MM`.
std::optional<minutes> readTime(QStringView text)
{
    const hours hour(number(text, 0));
    const minutes minute(number(text, 3));
    return hour < 24h && minute < 60min ? std::optional<minutes>(hour + minute) : std::nullopt;
}

/// How far local time is ahead of UTC.
std::optional<minutes> readOffset(QStringView zone)
{
    if (zone == u"Z")
        return 0min;
    if (!hasForm(zone, "+00:00"_L1) && !hasForm(zone, "-00:00"_L1))
        return std::nullopt;
    const std::optional<minutes> offset = readTime(zone.sliced(1));
    return offset && zone.front() == u'-' ? std::optional(-*offset) : offset;
}

}  // namespace

Timestamp Timestamp::now()
{
    return {duration<double>(system_clock::now() - reference).count()};
}

Timestamp Timestamp::fromUnixNanoseconds(std::int64_t nanoseconds)
{
    constexpr std::int64_t second = 1'000'000'000;
    constexpr double unixSeconds = duration<double>(reference.time_since_epoch()).count();
    return {double(nanoseconds / second) - unixSeconds + double(nanoseconds % second) / double(second)};
}

std::optional<Timestamp> Timestamp::fromIsoDate(QStringView text)
{
    constexpr qsizetype localLength = 19;
    const QStringView local = text.first(std::min(localLength, text.size()));
    if (!hasForm(local, "0000-00-00T00:00:00"_L1))
        return std::nullopt;
    const year_month_day date(year(number(local, 0, 4)), month(static_cast<unsigned>(number(local, 5))),
                              day(static_cast<unsigned>(number(local, 8))));
    const std::optional<minutes> time = readTime(local.sliced(11));
    const std::chrono::seconds second(number(local, 17));
    const std::optional<minutes> offset = readOffset(text.sliced(localLength));
    if (!date.ok() || !time || second >= 1min || !offset)
        return std::nullopt;
    const sys_seconds moment = sys_days(date) + *time + second - *offset;
    const Timestamp result{duration<double>(moment - reference).count()};
    return isIsoMoment(result.seconds) ? std::optional(result) : std::nullopt;
}

std::optional<QString> Timestamp::toIsoDate() const
{
    if (!isIsoMoment(seconds))
        return std::nullopt;
    const sys_seconds moment = reference + std::chrono::seconds(std::llround(std::floor(seconds)));
    const sys_days midnight = floor<days>(moment);
    const year_month_day date(midnight);
    const hh_mm_ss time(moment - midnight);
    return QString::asprintf("%04d-%02u-%02uT%02d:%02d:%02dZ", int(date.year()), unsigned(date.month()),
                             unsigned(date.day()), int(time.hours().count()), int(time.minutes().count()),
                             int(time.seconds().count()));
}

}  // namespace morvak
