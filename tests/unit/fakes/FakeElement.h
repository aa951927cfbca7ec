#pragma once

#include "platform/Accessibility.h"

#include <map>
#include <memory>
#include <vector>

namespace hmatnik::test {

/// An element of some application's window, scripted attribute by attribute. What was never set
/// reads as an error.
class FakeElement final : public platform::AccessibleElement
{
public:
    /// The error of an attribute that the element does not have.
    static constexpr int attributeUnsupported = -25205;

    static std::shared_ptr<FakeElement> make() { return std::make_shared<FakeElement>(); }

    /// A menu item as menus report it; an empty character is reported as an empty string.
    static std::shared_ptr<FakeElement>
    menuItem(const QString &title, const QString &character, std::int64_t modifiers = 0)
    {
        auto item = make();
        item->set(u"AXRole", QStringLiteral("AXMenuItem"));
        item->set(u"AXTitle", title);
        item->set(u"AXMenuItemCmdChar", character);
        item->set(u"AXMenuItemCmdModifiers", modifiers);
        return item;
    }

    /// A titled element with children: a menu bar item, a menu, an item that opens a submenu.
    static std::shared_ptr<FakeElement>
    branch(const QString &title, const std::vector<platform::AccessibleElementPtr> &children)
    {
        auto element = make();
        element->set(u"AXTitle", title);
        element->set(u"AXChildren", children);
        return element;
    }

    void set(QStringView name, const platform::AttributeResult::Value &value)
    {
        m_attributes[name.toString()] = {0, value};
    }
    void setError(QStringView name, int error) { m_attributes[name.toString()] = {error, {}}; }
    /// Sets error and value independently, as a careless application might report them.
    void setResult(QStringView name, const platform::AttributeResult &result)
    {
        m_attributes[name.toString()] = result;
    }

    platform::AttributeResult attribute(QStringView name) const override
    {
        const auto found = m_attributes.find(name.toString());
        if (found == m_attributes.end())
            return {attributeUnsupported, {}};
        return found->second;
    }

private:
    std::map<QString, platform::AttributeResult> m_attributes;
};

} // namespace hmatnik::test
