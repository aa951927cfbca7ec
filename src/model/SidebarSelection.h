#pragma once

#include "model/Shortcut.h"

#include <cstddef>

namespace hmatnik {

/// The destination chosen in the sidebar of the main window.
class SidebarSelection
{
public:
    enum class Kind { all, favorites, category, keyboard, sticker, firstAid, daily, practice };

    /// The whole library.
    SidebarSelection() = default;
    /// Any destination but a category.
    SidebarSelection(Kind kind)
        : m_kind(kind)
    {
    } // NOLINT(google-explicit-constructor)
    /// One category of the library.
    static SidebarSelection ofCategory(Shortcut::Category category)
    {
        SidebarSelection selection(Kind::category);
        selection.m_category = category;
        return selection;
    }

    Kind kind() const { return m_kind; }
    /// Meaningful only when kind() is category.
    Shortcut::Category category() const { return m_category; }

    /// By kind and, for a category, by which one.
    bool operator==(const SidebarSelection &other) const
    {
        return m_kind == other.m_kind &&
               (m_kind != Kind::category || m_category == other.m_category);
    }

private:
    Kind m_kind = Kind::all;
    Shortcut::Category m_category = Shortcut::Category::zaklady;
};

/// Feeds the kind's position and, for a category, its display name.
size_t qHash(const SidebarSelection &selection, size_t seed = 0) noexcept;

} // namespace hmatnik
