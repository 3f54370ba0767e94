// Tells assistive technology what the program's own widgets are.
#pragma once

namespace tarnquill::Accessibility {

// Call once, when the application starts.
void install();

} // namespace tarnquill::Accessibility
