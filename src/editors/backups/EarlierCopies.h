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

/// The displayed time of a copy: "Today, 14:05", "Tuesday, 9:30", "22/10/2026 8:00". Days are relative to
/// `now`; the locale determines the format, but digits are Latin, as everywhere in the panel.
[[nodiscard]] QString whenText(std::chrono::system_clock::time_point time, const QDateTime& now,
    const QLocale& locale, const PanelText& text);

class EarlierCopies : public QAbstractListModel {
  public:
    EarlierCopies(std::vector<DatedCopy> copies, QDateTime now, PanelText text);

    [[nodiscard]] const DatedCopy& copy(int row) const { return m_rows[std::size_t(row)].copy; }
    /// The differences of the row's copy, or why they are unknown; std::nullopt before compare().
    [[nodiscard]] const std::optional<QStringList>& differences(int row) const;
    /// Whether the row's copy can be restored.
    [[nodiscard]] bool isWhole(int row) const { return m_rows[std::size_t(row)].isWhole; }

    /// Reads the row's copy and compares it with the settings. Further calls do nothing.
    void compare(int row, const History& history, const plist::Dictionary& now);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// Three lines: the time, the reason and the number of differences.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

  private:
    struct Row {
        DatedCopy copy;
        bool isWhole = false;
        int count = 0;                          ///< of differences
        std::optional<QStringList> differences; ///< std::nullopt before it was read
    };

    [[nodiscard]] QString outcomeOf(const Row& row) const;

    std::vector<Row> m_rows;
    QDateTime m_now;
    PanelText m_text;
};

} // namespace quorvi
