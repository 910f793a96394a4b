#include "editors/backups/EarlierCopies.h"

#include <utility>

#include "window/BackupTexts.h"

namespace quorvi {

namespace {

constexpr int kDaysByName = 7;

QString reasonText(CopyReason reason, const PanelText& text) {
    switch (reason) {
    case CopyReason::firstChangeOfDay:
        return text("Before the first change of the day");
    case CopyReason::beforeDeletion:
        return text("Before a profile was deleted");
    case CopyReason::beforeRestore:
        break;
    }
    return text("Before settings were restored");
}

/// The text with Latin digits, as all other numbers of the panel have.
QString withPanelDigits(QString text) {
    for (QChar& character : text)
        if (const int digit = character.digitValue(); digit >= 0)
            character = QLatin1Char(static_cast<char>('0' + digit));
    return text;
}

/// The text with a capital at its beginning: many languages write days small within a sentence.
QString asBeginning(const QString& text, const QLocale& locale) {
    return locale.toUpper(text.left(1)) + text.mid(1);
}

} // namespace

QString whenText(std::chrono::system_clock::time_point time, const QDateTime& now, const QLocale& locale,
    const PanelText& text) {
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch());
    const QDateTime then = QDateTime::fromMSecsSinceEpoch(milliseconds.count());
    const QString clock = withPanelDigits(locale.toString(then.time(), QLocale::ShortFormat));
    const qint64 days = then.date().daysTo(now.date());
    if (days == 0)
        return filledText(text("Today, ^1"), {clock});
    if (days == 1)
        return filledText(text("Yesterday, ^1"), {clock});
    const QString day = days > 0 && days < kDaysByName
                            ? locale.standaloneDayName(then.date().dayOfWeek())
                            : withPanelDigits(locale.toString(then.date(), QLocale::ShortFormat));
    return filledText(text("^1, ^2"), {day, clock});
}

EarlierCopies::EarlierCopies(std::vector<DatedCopy> copies, QDateTime now, PanelText text)
    : m_now(std::move(now)), m_text(std::move(text)) {
    for (DatedCopy& copy : copies)
        m_rows.push_back({std::move(copy), false, 0, {}});
}

const std::optional<QStringList>& EarlierCopies::differences(int row) const {
    return m_rows[std::size_t(row)].differences;
}

void EarlierCopies::compare(int row, const History& history, const plist::Dictionary& now) {
    Row& compared = m_rows[std::size_t(row)];
    if (compared.differences)
        return;
    const ReadBackup read = history.read(compared.copy);
    compared.isWhole = read.fault == BackupFault::none;
    if (compared.isWhole) {
        compared.differences = differenceTexts(read.backup.tree, now, m_text);
        compared.count = int(compared.differences->size());
        if (compared.count == 0)
            compared.differences = QStringList{m_text("Nothing is different.")};
    } else {
        compared.differences = QStringList{m_text("This copy cannot be read.")};
    }
    emit dataChanged(index(row), index(row));
}

int EarlierCopies::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
}

QString EarlierCopies::outcomeOf(const Row& row) const {
    if (!row.differences)
        return m_text("Comparing…");
    if (!row.isWhole)
        return m_text("Cannot be read");
    return row.count == 0 ? m_text("No differences")
                          : filledText(m_text("Differences: ^1"), {QString::number(row.count)});
}

QVariant EarlierCopies::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const Row& row = m_rows[std::size_t(index.row())];
    const QLocale locale;
    const QString when = asBeginning(whenText(row.copy.time, m_now, locale, m_text), locale);
    return QStringList{when, reasonText(row.copy.reason, m_text), outcomeOf(row)}.join(QLatin1Char('\n'));
}

} // namespace quorvi
