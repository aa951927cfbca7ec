// Reads the menu bar of a process as a plain client of libatspi does: element by element, each
// question after the answer to the one before.
//
//     hmatnik_plain_menu_walk PROCESS
//
// Prints one line "ELEMENTS BINDINGS MILLISECONDS". The time runs from the connection to the
// accessibility bus to the last answer. Of every element it reads the children, the title and the
// key binding; the fourth thing that an import wants to know, the modifiers, is in the binding.

#include <atspi/atspi.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int depthOfMenuBars = 6;

struct Release
{
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(char *text) const { g_free(text); }
};
template <typename T>
using Owned = std::unique_ptr<T, Release>;

struct Count
{
    int elements = 0;
    int bindings = 0;
};

void walk(AtspiAccessible *element, Count &count)
{
    ++count.elements;
    const int children = atspi_accessible_get_child_count(element, nullptr);
    for (int i = 0; i < children; ++i) {
        if (const Owned<AtspiAccessible> child(
                atspi_accessible_get_child_at_index(element, i, nullptr));
            child)
            walk(child.get(), count);
    }
    const Owned<char> title(atspi_accessible_get_name(element, nullptr));
    const Owned<AtspiAction> action(atspi_accessible_get_action_iface(element));
    if (!action)
        return;
    const Owned<char> binding(atspi_action_get_key_binding(action.get(), 0, nullptr));
    if (binding && !std::string_view(binding.get()).empty())
        ++count.bindings;
}

/// The first menu bar that takes up room: some programs have a second one that nobody sees.
AtspiAccessible *menuBar(AtspiAccessible *element, int depth)
{
    if (atspi_accessible_get_role(element, nullptr) == ATSPI_ROLE_MENU_BAR) {
        const Owned<AtspiComponent> component(atspi_accessible_get_component_iface(element));
        AtspiRect *place =
            component
                ? atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, nullptr)
                : nullptr;
        const bool isOnScreen = place && place->width > 0 && place->height > 0;
        g_free(place);
        return isOnScreen ? ATSPI_ACCESSIBLE(g_object_ref(element)) : nullptr;
    }
    if (depth == 0)
        return nullptr;
    const int children = atspi_accessible_get_child_count(element, nullptr);
    for (int i = 0; i < children; ++i) {
        const Owned<AtspiAccessible> child(
            atspi_accessible_get_child_at_index(element, i, nullptr));
        if (AtspiAccessible *found = child ? menuBar(child.get(), depth - 1) : nullptr)
            return found;
    }
    return nullptr;
}

} // namespace

int main(int argc, char *argv[])
{
    const auto process = argc == 2 ? std::strtoul(argv[1], nullptr, 10) : 0;
    const auto start = Clock::now();
    atspi_init();
    const Owned<AtspiAccessible> desktop(atspi_get_desktop(0));
    const int applications = atspi_accessible_get_child_count(desktop.get(), nullptr);
    for (int i = 0; i < applications; ++i) {
        const Owned<AtspiAccessible> application(
            atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
        if (!application || atspi_accessible_get_process_id(application.get(), nullptr) != process)
            continue;
        const Owned<AtspiAccessible> bar(menuBar(application.get(), depthOfMenuBars));
        if (!bar)
            continue;
        Count count;
        walk(bar.get(), count);
        const std::chrono::duration<double, std::milli> time = Clock::now() - start;
        std::printf("%d %d %f\n", count.elements, count.bindings, time.count());
        return 0;
    }
    std::fprintf(stderr, "hmatnik_plain_menu_walk: no menu bar\n");
    return 2;
}
