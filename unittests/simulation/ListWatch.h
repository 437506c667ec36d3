// Holds the list of networks to its rules.
#pragma once

#include <set>
#include <string>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "diagnostic/platform/NameCollator.h"
#include "simulation/History.h"
#include "support/ExpectedList.h"

namespace wifi_profile::simulation {

// Looks at the list between pieces of work, when nothing is in the middle of changing it. In
// virtual time only; on whatever thread is in turn.
class ListWatch {
 public:
  // `history` must outlive the watch.
  explicit ListWatch(History& history) : history_(history) {}

  // After each piece of work. `mayBeFirst` and `mayBeRefresh`: of which kind the list operations
  // under way are.
  void check(const WiFiProfileViewController& controller, bool mayBeFirst, bool mayBeRefresh);

  // A scan's thread is about to ask for the scan: a name that was selected in the background since
  // the last check stands over a list that still holds it, until the scan brings another list.
  void scanBegins(const WiFiProfileViewController& controller);

  // The scan that the list was made of; null: none yet.
  const void* scan() const { return distinct_.get(); }

  // Whether one of the latest two lists has odd names: ones that may be listed twice, or though
  // they are selected, and whose rows the dictionary may lack. Three things make a name odd, each
  // until the next scan:
  // - the list took in a left-over access point of an earlier association, whose name is not that
  // of
  //   the network joined now, and need not be unlisted;
  // - the joined address was heard under another name than that of the network joined: what stands
  //   for the name as the selected network's is not what is listed under it;
  // - a second first scan, begun by a power notification, selected the joined network while the
  // list
  //   of the scan before still held it: the next choice puts it back once more.
  bool isOdd() const { return !oddNames_.empty() || !oddNamesBefore_.empty(); }

 private:
  void scanLanded(const WiFiProfileViewController& controller, bool mayBeFirst, bool mayBeRefresh);
  void findOddNames(const ExpectedList& heard, const VqWiFiStatusRef& status);
  bool isOdd(const TextRef& name) const { return name && oddNames_.contains(name->string()); }
  NetworkList common(const NetworkList& list, const NetworkList& other) const;
  void checkLists(const NetworkList& list, const NetworkDictionary& dictionary);
  void checkOrder(const NetworkList& list);

  History& history_;
  NetworkDictionaryRef distinct_;  // of the latest scan, as the latest check found it
  NetworkListRef list_;
  NetworkDictionaryRef dictionary_;
  ScanResultRef current_;
  TextRef selectedName_;
  std::set<std::string> oddNames_;
  std::set<std::string> oddNamesBefore_;  // of the scan before
  bool selectedUnderTheList_ = false;
};

}  // namespace wifi_profile::simulation
