#pragma once

#include <QString>

namespace hmatnik {

/// Which of Qt Quick's renderers suits this machine.
namespace RendererChoice {

/// True where no graphics card can draw for us: the folder of the kernel's graphics devices holds
/// no render node that this process may open. OpenGL would then be emulated by the processor, which
/// measured twice the start time and nearly three times the memory of drawing without it.
/// @param deviceFolder "/dev/dri" on Linux
bool drawsBetterInSoftware(const QString &deviceFolder);

/// Chooses for the windows to come; a choice made through Qt's own environment variables stays.
void apply();

} // namespace RendererChoice

} // namespace hmatnik
