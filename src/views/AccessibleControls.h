#pragma once

namespace hmatnik {

/// From now on assistive technologies see our buttons and lists as they are, where the toolkit
/// alone tells them otherwise: a button that can't be used says so and refuses to be pressed, and
/// the rows of a list stand in the order in which they are read. Can be called again.
void improveAccessibleControls();

} // namespace hmatnik
