// The progress bar for screen readers.
#pragma once

namespace wifi_profile {

// Qt Quick tells screen readers when a progress bar's value changes, but gives them no value to
// read. From this call on the item with the object name "progressBar" has one, between 0 and 1; its
// properties are "value", "name" and "description". Main thread; it does no harm to call it again.
void makeProgressAccessible();

}  // namespace wifi_profile
