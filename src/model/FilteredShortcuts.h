#pragma once

#include "model/Shortcut.h"

#include <QList>

#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

namespace hmatnik {

/// The records that a filter let through, in pool order: a plain value that stays as it is when
/// the model changes. It shares the pool's records instead of copying them, so that an answer
/// costs no more than finding it.
class FilteredShortcuts
{
public:
    class const_iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Shortcut;
        using difference_type = std::ptrdiff_t;
        using pointer = const Shortcut *;
        using reference = const Shortcut &;

        const_iterator() = default;
        reference operator*() const { return m_list->at(m_index); }
        pointer operator->() const { return &m_list->at(m_index); }
        const_iterator &operator++()
        {
            ++m_index;
            return *this;
        }
        const_iterator operator++(int) { return {m_list, m_index++}; }
        bool operator==(const const_iterator &other) const = default;

    private:
        friend class FilteredShortcuts;
        const_iterator(const FilteredShortcuts *list, int index)
            : m_list(list)
            , m_index(index)
        {
        }

        const FilteredShortcuts *m_list = nullptr;
        int m_index = 0;
    };

    FilteredShortcuts() = default;
    /// @param positions ascending positions in the list of records.
    FilteredShortcuts(QList<Shortcut> records, std::vector<int> positions)
        : m_records(std::move(records))
        , m_positions(std::move(positions))
    {
    }

    int size() const { return static_cast<int>(m_positions.size()); }
    bool isEmpty() const { return m_positions.empty(); }
    const Shortcut &at(int index) const
    {
        return m_records.at(m_positions.at(static_cast<std::size_t>(index)));
    }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, size()}; }

private:
    QList<Shortcut> m_records;
    std::vector<int> m_positions;
};

} // namespace hmatnik
