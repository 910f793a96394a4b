// The dated copies of the settings as the rows of a list.
#pragma once

#include <QAbstractListModel>
#include <QDateTime>
#include <QLocale>

#include <optional>
#include <vector>

#include "history/History.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// When a copy was made, as people say it: "Today, 14:05", "Tuesday, 9:30", "22/10/2026 8:00". Days are those
/// of now's clock; the locale says how times and dates are written.
[[nodiscard]] QString whenText(std::chrono::system_clock::time_point time, const QDateTime& now,
    const QLocale& locale, const PanelText& text);

class EarlierCopies : public QAbstractListModel {
  public:
    EarlierCopies(std::vector<DatedCopy> copies, QDateTime now, PanelText text);

    [[nodiscard]] const DatedCopy& copy(int row) const { return m_rows[std::size_t(row)].copy; }
    /// What is different in the copy of the row, or why that is not known; nothing before compare().
    [[nodiscard]] const std::optional<QStringList>& differences(int row) const;
    /// The copy of the row can be taken.
    [[nodiscard]] bool isWhole(int row) const { return m_rows[std::size_t(row)].isWhole; }

    /// Reads the copy of the row and compares it with the settings. Does nothing a second time.
    void compare(int row, const History& history, const plist::Dictionary& now);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// Two lines: when, and then why and how many differences there are.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    struct Row {
        DatedCopy copy;
        bool isWhole = false;
        int count = 0;                          ///< of differences
        std::optional<QStringList> differences; ///< nothing before it was read
    };

    [[nodiscard]] QString outcomeOf(const Row& row) const;

    std::vector<Row> m_rows;
    QDateTime m_now;
    PanelText m_text;
};

} // namespace quorvi
