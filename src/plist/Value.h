// The property-list tree: the content of a settings file, in memory.
//
// Dictionaries and arrays are references to shared storage: a copy of a Dictionary or an Array refers to the
// same storage, so an editor's "current profile" is a handle into the one live tree. A default-constructed
// handle is nil. Every operation on nil is allowed: reads return empty values, writes do nothing. Scalars are
// values.
//
// Reading is total. A missing key, an index past the end or a value of another type reads as 0, false or an
// empty value; there is no error to handle.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "plist/Room.h"

namespace quorvi::plist {

class Value;
class Array;
struct Entry;

/// The bytes of a property list's data value.
using Data = std::vector<std::uint8_t>;

/// A value that the panel has no use for but keeps for the program that owns it: a date, a UID, an integer
/// above the signed 64-bit range. Immutable, and opaque outside src/plist.
class Carried;
using CarriedRef = std::shared_ptr<const Carried>;

/// A reference to a shared, ordered dictionary with UTF-8 keys, or nil.
class Dictionary {
  public:
    /// Most dictionaries of a configuration have two to four keys.
    static constexpr std::size_t kUsualSize = 4;
    using Entries = RoomyVector<Entry, kUsualSize>;

    Dictionary() = default; ///< nil
    [[nodiscard]] static Dictionary create();

    explicit operator bool() const { return m_storage != nullptr; }
    /// Same storage, not equal content. Two nil handles are the same.
    [[nodiscard]] bool isSameAs(const Dictionary& other) const { return m_storage == other.m_storage; }

    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] bool has(std::string_view key) const;
    /// The value under the key; Value() if it is missing.
    [[nodiscard]] const Value& value(std::string_view key) const;
    [[nodiscard]] std::int32_t integer(std::string_view key) const;
    [[nodiscard]] bool boolean(std::string_view key) const;
    [[nodiscard]] double real(std::string_view key) const;
    [[nodiscard]] std::u16string string(std::string_view key) const; ///< empty if it is not a string
    [[nodiscard]] Dictionary dictionary(std::string_view key) const;
    [[nodiscard]] Array array(std::string_view key) const;

    /// Replaces the value under the key in place, or appends a new entry.
    void set(std::string_view key, Value value) const;
    /// Appends an entry whose key is known to be new; for readers that build a dictionary in order.
    /// Constructs the value in place.
    template <typename T>
    void append(std::string_view key, T&& value) const;
    void remove(std::string_view key) const;
    void removeAll() const;
    void reserve(std::size_t count) const;

    /// The entries in order; empty when nil. Invalidated by any change of the dictionary.
    [[nodiscard]] const Entries& entries() const;

  private:
    struct Storage;
    std::shared_ptr<Storage> m_storage;
};

/// A reference to a shared array, or nil.
class Array {
  public:
    using Items = std::vector<Value>;

    Array() = default; ///< nil
    [[nodiscard]] static Array create();

    explicit operator bool() const { return m_items != nullptr; }
    [[nodiscard]] bool isSameAs(const Array& other) const { return m_items == other.m_items; }

    [[nodiscard]] std::size_t size() const;
    /// The item at the index; Value() past the end.
    [[nodiscard]] const Value& value(std::size_t index) const;
    /// The dictionary at the index; nil past the end or if the item is not a dictionary.
    [[nodiscard]] Dictionary dictionary(std::size_t index) const;

    /// Constructs the value in place.
    template <typename T>
    void append(T&& value) const;
    /// Inserts before the index; appends when the index is past the end.
    void insert(std::size_t index, Value value) const;
    void replace(std::size_t index, Value value) const; ///< no effect past the end
    void remove(std::size_t index) const;               ///< no effect past the end
    void removeAll() const;
    void reserve(std::size_t count) const;

    [[nodiscard]] const Items& items() const;

  private:
    std::shared_ptr<Items> m_items;
};

/// Any value of the tree, or nothing.
class Value {
  public:
    Value() = default; ///< the "nothing" value; cannot be written to a property list
    Value(bool v) : m_value(v) {}
    Value(std::int32_t v) : m_value(std::int64_t{v}) {}
    Value(std::int64_t v) : m_value(v) {}
    Value(double v) : m_value(v) {}
    /// A 32-bit float is kept as its exact value.
    Value(float v) : m_value(double{v}) {}
    Value(std::u16string v) : m_value(std::move(v)) {}
    Value(const char16_t* v) : m_value(std::u16string(v)) {}
    Value(Data v) : m_value(std::move(v)) {}
    Value(Dictionary v);         ///< isNothing() if nil
    Value(Array v);              ///< isNothing() if nil
    Value(CarriedRef v);         ///< isNothing() if null
    Value(const void*) = delete; // keeps stray pointers from becoming booleans
    Value(const char*) = delete;

    [[nodiscard]] bool isNothing() const { return std::holds_alternative<std::monostate>(m_value); }

    /// The value as the platform's 32-bit integer: an integer's low 32 bits, a real truncated toward zero and
    /// clamped to the range (NaN becomes 0), a boolean as 0 or 1, a string's leading decimal number (blanks,
    /// sign, digits; clamped to the range), 0 for everything else.
    [[nodiscard]] std::int32_t integer() const;
    /// Numbers: not 0. Strings: true if they start, after blanks, a sign and zeros, with Y, y, T, t or a
    /// digit from 1 to 9. False for everything else.
    [[nodiscard]] bool boolean() const;
    /// The value as a real number: a string's leading decimal number (infinite when too large, 0 when too
    /// small), 0 for every other value that is not a number.
    [[nodiscard]] double real() const;
    /// nullptr if the value has another type.
    [[nodiscard]] const std::u16string* string() const { return std::get_if<std::u16string>(&m_value); }
    [[nodiscard]] const Data* data() const { return std::get_if<Data>(&m_value); }
    [[nodiscard]] Dictionary dictionary() const; ///< nil if the value has another type
    [[nodiscard]] Array array() const;           ///< nil if the value has another type

    using Variant = std::variant<std::monostate, bool, std::int64_t, double, std::u16string, Data, Dictionary,
        Array, CarriedRef>;
    [[nodiscard]] const Variant& variant() const { return m_value; }

  private:
    Variant m_value;
};

/// One key of a dictionary with its value.
struct Entry {
    template <typename T>
    Entry(std::string_view entryKey, T&& entryValue) : key(entryKey), value(std::forward<T>(entryValue)) {}

    std::string key;
    Value value;
};

/// One heap block for a dictionary of the usual size and all its handles.
struct Dictionary::Storage {
    Storage() { entries.reserve(kUsualSize); }

    Room<Entry, kUsualSize> room;
    Entries entries{Entries::allocator_type(room)};
};

template <typename T>
void Dictionary::append(std::string_view key, T&& value) const {
    if (m_storage)
        m_storage->entries.emplace_back(key, std::forward<T>(value));
}

/// Equal content: same types, same values, same keys whatever their order.
[[nodiscard]] bool operator==(const Value& a, const Value& b);

template <typename T>
void Array::append(T&& value) const {
    if (m_items)
        m_items->emplace_back(std::forward<T>(value));
}

} // namespace quorvi::plist
