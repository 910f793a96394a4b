#include "plist/Value.h"

#include <algorithm>

#include "plist/ScalarConversion.h"

namespace quorvi::plist {

namespace {

constinit const Value g_nothing;

template <typename EntryList>
auto findKey(EntryList& entries, std::string_view key) {
    return std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry.key == key; });
}

} // namespace

Dictionary Dictionary::create() {
    Dictionary dictionary;
    dictionary.m_storage = std::make_shared<Storage>();
    return dictionary;
}

std::size_t Dictionary::size() const {
    return m_storage ? m_storage->entries.size() : 0;
}

bool Dictionary::has(std::string_view key) const {
    return !value(key).isNothing();
}

const Value& Dictionary::value(std::string_view key) const {
    if (!m_storage)
        return g_nothing;
    const auto found = findKey(m_storage->entries, key);
    return found == m_storage->entries.end() ? g_nothing : found->value;
}

std::int32_t Dictionary::integer(std::string_view key) const {
    return value(key).integer();
}
bool Dictionary::boolean(std::string_view key) const {
    return value(key).boolean();
}
double Dictionary::real(std::string_view key) const {
    return value(key).real();
}

std::u16string Dictionary::string(std::string_view key) const {
    const auto* text = value(key).string();
    return text ? *text : std::u16string();
}

Dictionary Dictionary::dictionary(std::string_view key) const {
    return value(key).dictionary();
}
Array Dictionary::array(std::string_view key) const {
    return value(key).array();
}

void Dictionary::set(std::string_view key, Value value) const {
    if (!m_storage)
        return;
    const auto found = findKey(m_storage->entries, key);
    if (found == m_storage->entries.end())
        append(key, std::move(value));
    else
        found->value = std::move(value);
}

void Dictionary::remove(std::string_view key) const {
    if (!m_storage)
        return;
    const auto found = findKey(m_storage->entries, key);
    if (found != m_storage->entries.end())
        m_storage->entries.erase(found);
}

void Dictionary::removeAll() const {
    if (m_storage)
        m_storage->entries.clear();
}

void Dictionary::reserve(std::size_t count) const {
    if (m_storage)
        m_storage->entries.reserve(count);
}

const Dictionary::Entries& Dictionary::entries() const {
    static const Entries none;
    return m_storage ? m_storage->entries : none;
}

Array Array::create() {
    Array array;
    array.m_items = std::make_shared<Items>();
    return array;
}

std::size_t Array::size() const {
    return m_items ? m_items->size() : 0;
}

const Value& Array::value(std::size_t index) const {
    return index < size() ? (*m_items)[index] : g_nothing;
}

Dictionary Array::dictionary(std::size_t index) const {
    return value(index).dictionary();
}

void Array::insert(std::size_t index, Value value) const {
    if (m_items)
        m_items->insert(
            m_items->begin() + static_cast<std::ptrdiff_t>(std::min(index, size())), std::move(value));
}

void Array::replace(std::size_t index, Value value) const {
    if (index < size())
        (*m_items)[index] = std::move(value);
}

void Array::remove(std::size_t index) const {
    if (index < size())
        m_items->erase(m_items->begin() + static_cast<std::ptrdiff_t>(index));
}

void Array::removeAll() const {
    if (m_items)
        m_items->clear();
}

void Array::reserve(std::size_t count) const {
    if (m_items)
        m_items->reserve(count);
}

const Array::Items& Array::items() const {
    static const Items none;
    return m_items ? *m_items : none;
}

Value::Value(Dictionary v) {
    if (v)
        m_value = std::move(v);
}

Value::Value(Array v) {
    if (v)
        m_value = std::move(v);
}

Value::Value(CarriedRef v) {
    if (v)
        m_value = std::move(v);
}

std::int32_t Value::integer() const {
    return toInteger(*this);
}
bool Value::boolean() const {
    return toBoolean(*this);
}
double Value::real() const {
    return toReal(*this);
}

Dictionary Value::dictionary() const {
    const auto* v = std::get_if<Dictionary>(&m_value);
    return v ? *v : Dictionary();
}

Array Value::array() const {
    const auto* v = std::get_if<Array>(&m_value);
    return v ? *v : Array();
}

namespace {

/// One overload for each type that has its own equality; both sides have the same type.
struct SameContent {
    template <typename T>
    bool operator()(const T& a, const T& b) const {
        return a == b;
    }
    bool operator()(const CarriedRef& a, const CarriedRef& b) const { return carriedEqual(a, b); }
    bool operator()(const Array& a, const Array& b) const { return a.isSameAs(b) || a.items() == b.items(); }
    bool operator()(const Dictionary& a, const Dictionary& b) const {
        return a.isSameAs(b) || (a.size() == b.size() && allIn(a.entries(), b.entries()));
    }

  private:
    /// Copies have their keys in the same order, so the same place is tried first.
    static bool allIn(const Dictionary::Entries& entries, const Dictionary::Entries& others) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            const Entry& entry = entries[i];
            const auto other =
                others[i].key == entry.key ? others.begin() + std::ptrdiff_t(i) : findKey(others, entry.key);
            if (other == others.end() || !(other->value == entry.value))
                return false;
        }
        return true;
    }
};

} // namespace

bool operator==(const Value& a, const Value& b) {
    if (a.variant().index() != b.variant().index())
        return false;
    return std::visit(
        [&](const auto& value) {
            return SameContent()(value, std::get<std::decay_t<decltype(value)>>(b.variant()));
        },
        a.variant());
}

} // namespace quorvi::plist
