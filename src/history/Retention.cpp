#include "history/Retention.h"

#include <ctime>
#include <set>

namespace quorvi {

namespace {

using std::chrono::sys_days;

constexpr int kMonthsOfYear = 12;

/// The month's place in the order of all months.
int monthOf(sys_days day) {
    const std::chrono::year_month_day date(day);
    return static_cast<int>(date.year()) * kMonthsOfYear + static_cast<int>(unsigned(date.month()));
}

/// Decides on copies given oldest first, so that the first one of a day or a month comes first.
class Retention {
  public:
    Retention(const std::vector<SizedCopy>& newestFirst, SystemTime now) : m_today(localDay(now)) {
        std::size_t ofToday = 0;
        for (const SizedCopy& sized : newestFirst) {
            const sys_days day = localDay(sized.copy.time);
            m_newestDays.insert(day);
            if (m_newestDays.size() > kDaysWithCopies)
                m_newestDays.erase(m_newestDays.begin());
            if (day == m_today && ++ofToday < kCopiesOfToday)
                m_newestOfToday.insert(sized.copy.name);
        }
    }

    [[nodiscard]] bool stays(const DatedCopy& copy) {
        const sys_days day = localDay(copy.time);
        if (m_newestDays.contains(day))
            return m_daysSeen.insert(day).second || m_newestOfToday.contains(copy.name);
        const bool isWithinAYear = monthOf(m_today) - monthOf(day) <= kMonthsWithCopies;
        return isWithinAYear && m_monthsSeen.insert(monthOf(day)).second;
    }

  private:
    sys_days m_today;
    std::set<sys_days> m_newestDays;
    std::set<std::string> m_newestOfToday;
    std::set<sys_days> m_daysSeen;
    std::set<int> m_monthsSeen;
};

} // namespace

sys_days localDay(SystemTime time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm local{};
    ::tzset(); // the user may have travelled since the program began
    ::localtime_r(&seconds, &local);
    constexpr int firstYear = 1900;
    return sys_days(std::chrono::year(local.tm_year + firstYear) /
                    std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)) /
                    std::chrono::day(static_cast<unsigned>(local.tm_mday)));
}

std::vector<std::string> copiesToRemove(
    const std::vector<SizedCopy>& newestFirst, const std::string& justMade, SystemTime now) {
    Retention retention(newestFirst, now);
    std::set<std::string> staying{justMade};
    for (auto sized = newestFirst.rbegin(); sized != newestFirst.rend(); ++sized)
        if (retention.stays(sized->copy))
            staying.insert(sized->copy.name);
    std::vector<std::string> gone;
    std::uint64_t bytes = 0;
    for (const SizedCopy& sized : newestFirst) {
        const bool stays = staying.contains(sized.copy.name);
        bytes += stays ? sized.bytes : 0;
        if (!stays || (bytes > kHistoryBytes && sized.copy.name != justMade))
            gone.push_back(sized.copy.name);
    }
    return gone;
}

} // namespace quorvi
