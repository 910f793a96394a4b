// What a program tells assistive programs of what it shows: AT-SPI 2, over D-Bus.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace quorvi::test {

/// The bits of a state set that are asked for here, by their numbers (at-spi2-core, atspi-constants.h).
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

/// What a thing was when it was asked.
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

/// One thing that a program shows. What is asked of a thing that has gone, or that it does not have, is
/// empty.
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
    /// All of them with one question.
    [[nodiscard]] AccessibleStates states() const;
    [[nodiscard]] bool is(AccessibleState state) const { return states().has(state); }
    [[nodiscard]] Accessible parent() const;
    [[nodiscard]] std::vector<Accessible> children() const;
    /// What the program says is its label, beside its name.
    [[nodiscard]] std::string label() const;
    /// On the screen; nothing of 0 by 0 pixels when it is not there.
    [[nodiscard]] Extents extents() const;

    /// What can be done with it: "Press", "Toggle", "SetFocus", …
    [[nodiscard]] std::vector<std::string> actions() const;
    /// Does it; false when it cannot be done. Returns when the program says that it is done.
    bool perform(const std::string& action) const; // NOLINT(modernize-use-nodiscard)

    /// What stands in a text field.
    [[nodiscard]] std::string text() const;
    /// Replaces that; false when the thing takes no text.
    bool setText(const std::string& text) const; // NOLINT(modernize-use-nodiscard)

    // What is set by degrees: a slider. Setting gives false when there is no such thing.

    [[nodiscard]] double value() const;
    [[nodiscard]] double lowestValue() const;
    [[nodiscard]] double highestValue() const;
    bool setValue(double value) const; // NOLINT(modernize-use-nodiscard)

    // A table.

    [[nodiscard]] int rows() const;
    [[nodiscard]] int columns() const;
    [[nodiscard]] Accessible cell(int row, int column) const;
    [[nodiscard]] std::string columnTitle(int column) const;
    /// Selects it; false when it cannot be selected.
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

/// The thing and everything below it that is on the screen, parents first.
[[nodiscard]] std::vector<Accessible> everythingIn(const Accessible& top);

/// The control that the thing belongs to: a table for its cells, a list for its items.
[[nodiscard]] Accessible controlOf(const Accessible& thing);

/// How a failed test names it: "push button 'Add profile'".
[[nodiscard]] std::string spoken(const Accessible& thing);

} // namespace quorvi::test
