#pragma once

class QQmlEngine;

namespace hmatnik {

/// Collects what QML has no use for any more and gives the system back what the heap does not
/// need. Takes some milliseconds, so it is for moments when nobody waits for a frame.
void giveBackMemory(QQmlEngine &engine);

} // namespace hmatnik
