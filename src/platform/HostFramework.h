// The diagnostics host framework: what the host hands in, and what it is handed back.
#pragma once

#include <memory>

#include "platform/Dictionary.h"
#include "platform/Interface.h"
#include "platform/Number.h"
#include "platform/Property.h"
#include "platform/toolkit/ViewController.h"

namespace wifi_profile {

// A diagnostic's parameters, validated once.
class HxDiagnosticInputs : public Interface {
 public:
  // YES when the parameters are acceptable. Called once, on a new object.
  virtual bool validateAndInitializeParameters(const DictionaryRef& parameters) = 0;
};

// The host object that a diagnostic may answer to.
class HxResponder;

// Told of every step of a diagnostic's end, on the thread that takes it.
class HxDiagnosticObserver : public Interface {
 public:
  virtual void statusCodeWasSet(const NumberRef& statusCode) = 0;
  virtual void dataWasSet(const DictionaryRef& data) = 0;
  virtual void finishedWasSet(bool finished) = 0;
};

// The result that a diagnostic fills in. Any thread.
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

// The base of every diagnostic's one screen.
class HxDiagnosticViewController : public toolkit::ViewController {
 public:
  // Called by the host on the main thread, each once: `start` after set-up, `teardown` at the end
  // or when the host wants the diagnostic gone.
  virtual void start() = 0;
  virtual void teardown() = 0;

  // Any thread.
  HxDiagnosticResult& result() { return result_; }

  // Tells the host that the diagnostic is over. Any thread.
  void setFinished(bool finished);

  // To be set before `start`; null for none.
  void setObserver(std::shared_ptr<HxDiagnosticObserver> observer) {
    result_.observer_.set(std::move(observer));
  }

 private:
  HxDiagnosticResult result_;
};

}  // namespace wifi_profile
