// The diagnostics host framework: what the host passes to a diagnostic, and what it gets back.
#pragma once

#include <memory>

#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Property.h"
#include "diagnostic/platform/toolkit/ViewController.h"

namespace wifi_profile {

// The parameters of a diagnostic, validated once.
class HxDiagnosticInputs : public Interface {
 public:
  // Returns true if the parameters are acceptable. Called once, on a new object.
  virtual bool validateAndInitializeParameters(const DictionaryRef& parameters) = 0;
};

// The host object that a diagnostic may report to.
class HxResponder;

// Observes every step of the end of a diagnostic. Called on the thread that takes the step.
class HxDiagnosticObserver : public Interface {
 public:
  virtual void statusCodeWasSet(const NumberRef& statusCode) = 0;
  virtual void dataWasSet(const DictionaryRef& data) = 0;
  virtual void finishedWasSet(bool finished) = 0;
};

// The result that a diagnostic sets. Any thread.
class HxDiagnosticResult {
 public:
  void setStatusCode(const NumberRef& statusCode);
  void setData(const DictionaryRef& data);
  NumberRef statusCode() const { return statusCode_(); }  // nil until set
  DictionaryRef data() const { return data_(); }          // nil until set

 private:
  friend class HxDiagnosticViewController;
  Property<NumberRef> statusCode_;
  Property<DictionaryRef> data_;
  Property<std::shared_ptr<HxDiagnosticObserver>> observer_;
};

// The base class of the one screen of every diagnostic.
class HxDiagnosticViewController : public toolkit::ViewController {
 public:
  // The host calls each of these once, on the main thread: `start` after set-up, `teardown` at the
  // end or when the host wants to stop the diagnostic.
  virtual void start() = 0;
  virtual void teardown() = 0;

  // Any thread.
  HxDiagnosticResult& result() { return result_; }

  // Notifies the host that the diagnostic is over. Any thread.
  void setFinished(bool finished);

  // Must be set before `start`. Null: no observer.
  void setObserver(std::shared_ptr<HxDiagnosticObserver> observer) {
    result_.observer_.set(std::move(observer));
  }

 private:
  HxDiagnosticResult result_;
};

}  // namespace wifi_profile
