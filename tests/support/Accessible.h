// A program's interface for assistive programs: AT-SPI 2, over D-Bus.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace quorvi::test {

/// The state bits used here, by number (at-spi2-core, atspi-constants.h).
enum class AccessibleState : int {
    active = 1,
    checked = 4,
    enabled = 8,
    focusable = 11,
    focused = 12,
    modal = 16,
    selected = 23,
    showing = 25,
    visible = 30,
    isDefault = 39,
    checkable = 41,
    hasPopup = 42,
};

/// An object's states at the time of the query.
class AccessibleStates {
  public:
    explicit AccessibleStates(std::uint64_t bits = 0) : m_bits(bits) {}
    [[nodiscard]] bool has(AccessibleState state) const {
        return (m_bits >> static_cast<int>(state) & 1U) != 0;
    }

  private:
    std::uint64_t m_bits;
};

/// A place on the screen, in pixels.
struct Extents {
    int left = 0, top = 0, width = 0, height = 0;
    [[nodiscard]] int right() const { return left + width; }
    [[nodiscard]] int bottom() const { return top + height; }
};

/// One object on the screen. Queries of a removed object, or of a missing property, return empty values.
class Accessible {
  public:
    Accessible() = default;
    Accessible(std::shared_ptr<sd_bus> bus, std::string program, std::string path);

    [[nodiscard]] bool isNull() const { return !m_bus || m_path.empty() || m_path.ends_with("/null"); }
    bool operator==(const Accessible& other) const {
        return m_program == other.m_program && m_path == other.m_path;
    }

    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string description() const;
    /// "push button", "check box", "table", …
    [[nodiscard]] std::string role() const;
    /// All states with one query.
    [[nodiscard]] AccessibleStates states() const;
    [[nodiscard]] bool is(AccessibleState state) const { return states().has(state); }
    [[nodiscard]] Accessible parent() const;
    [[nodiscard]] std::vector<Accessible> children() const;
    /// Its label, in addition to its name.
    [[nodiscard]] std::string label() const;
    /// On the screen; 0 by 0 pixels if it is not shown.
    [[nodiscard]] Extents extents() const;

    /// Its actions: "Press", "Toggle", "SetFocus", …
    [[nodiscard]] std::vector<std::string> actions() const;
    /// Performs the action and waits for the program's answer; returns false if it fails.
    bool perform(const std::string& action) const; // NOLINT(modernize-use-nodiscard)

    /// The content of a text field.
    [[nodiscard]] std::string text() const;
    /// Replaces it; returns false if the object has no editable text.
    bool setText(const std::string& text) const; // NOLINT(modernize-use-nodiscard)

    // The value of a slider. Setting returns false if the object has none.

    [[nodiscard]] double value() const;
    [[nodiscard]] double lowestValue() const;
    [[nodiscard]] double highestValue() const;
    bool setValue(double value) const; // NOLINT(modernize-use-nodiscard)

    // A table.

    [[nodiscard]] int rows() const;
    [[nodiscard]] int columns() const;
    [[nodiscard]] Accessible cell(int row, int column) const;
    [[nodiscard]] std::string columnTitle(int column) const;
    /// Selects the row and no other; returns false if it cannot be selected.
    bool selectRow(int row) const; // NOLINT(modernize-use-nodiscard)
    [[nodiscard]] std::vector<int> selectedRows() const;

  private:
    using Message = std::shared_ptr<sd_bus_message>;
    template <typename... Arguments>
    [[nodiscard]] Message call(
        const char* interface, const char* method, const char* types, Arguments... arguments) const;
    [[nodiscard]] Accessible readReference(sd_bus_message* message) const;
    [[nodiscard]] std::string textProperty(const char* interface, const char* property) const;
    [[nodiscard]] int numberProperty(const char* interface, const char* property) const;
    [[nodiscard]] double valueProperty(const char* property) const;

    std::shared_ptr<sd_bus> m_bus;
    std::string m_program;
    std::string m_path;
};

/// The object and all visible ones below it, parents first.
[[nodiscard]] std::vector<Accessible> everythingIn(const Accessible& top);

/// The control that the object belongs to: a table for its cells, a list for its items.
[[nodiscard]] Accessible controlOf(const Accessible& thing);

/// Its name in a failed test: "push button 'Add profile'".
[[nodiscard]] std::string spoken(const Accessible& thing);

} // namespace quorvi::test
