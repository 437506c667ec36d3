// Makes the progress bar accessible to screen readers.
#pragma once

namespace wifi_profile::window {

// Qt Quick notifies screen readers of changes of a progress bar's value, but provides no value to
// read. After this call, the item with the object name "progressBar" provides one, between 0 and 1,
// from its properties "value", "name" and "description". Main thread; may be called repeatedly.
void makeProgressAccessible();

}  // namespace wifi_profile::window
