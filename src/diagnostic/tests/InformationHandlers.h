// Converts values from the information of a result to the objects that the record stores.
#pragma once

#include <string_view>

#include "diagnostic/platform/Object.h"

namespace wifi_profile {

class WiFiProfileViewController;

// Converts the value of an info key (nil: the key is missing) to the object to store. Returns nil
// for a value that counts as not found. A value of a type that the handler cannot read also counts
// as not found: a service may send any value, and a null placeholder is not a record.
using InformationHandler = ObjectRef (*)(WiFiProfileViewController& controller,
                                         const ObjectRef& value);

ObjectRef copyUnchanged(WiFiProfileViewController&, const ObjectRef& value);
// Returns a PreferredNetworkRecord as a dictionary of eight entries.
ObjectRef summarisePreferredNetwork(WiFiProfileViewController&, const ObjectRef& value);
// Returns a PingResultRecord as a dictionary of eight entries.
ObjectRef summarisePing(WiFiProfileViewController&, const ObjectRef& value);
// Returns the channel of a ChannelRecord as an integer number.
ObjectRef readChannel(WiFiProfileViewController&, const ObjectRef& value);
// Returns the number of elements of an array as an unsigned number.
ObjectRef countElements(WiFiProfileViewController&, const ObjectRef& value);
// Stores the array in `wifiScanResults` of the controller, even if it is nil.
ObjectRef keepScanResults(WiFiProfileViewController&, const ObjectRef& value);

}  // namespace wifi_profile
