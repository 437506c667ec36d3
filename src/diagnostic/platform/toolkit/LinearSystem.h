// Linear equations and inequalities, added one after another. Each is met as far as the earlier
// ones allow. Pure arithmetic on dimensionless values; one thread at a time.
#pragma once

#include <map>
#include <optional>

namespace wifi_profile::toolkit {

// A constant plus a sum of coefficient x variable.
struct LinearForm {
  double constant = 0;
  std::map<int, double> terms;  // by variable; no coefficient is 0

  // A coefficient that cancels out, except for a rounding error, is removed.
  void add(double factor, const LinearForm& other);
  void addTerm(int variable, double coefficient);
  void negate();
};

// The system is always kept solved. Each dependent variable has a row: a form of independent
// variables. A variable is either free or a slack. A free variable has no bounds. A slack
// represents an inequality: `form >= 0` is the equation `form = slack`, where the slack must not be
// negative. Free variables become dependent first. Therefore the rows of dependent slacks are forms
// of slacks only, and with all independent slacks at 0 no dependent slack is negative. From this
// state, dependent and independent slacks are exchanged until the next form is met or no exchange
// brings it closer. In the second case, the slacks that prevent it stay at 0.
//
// A divisor is 1 or -1 if there is a choice, else a power of two, else the largest coefficient.
// Therefore whole numbers, halves and other binary fractions stay exact unless the equations
// require other divisors.
class LinearSystem {
 public:
  // The free variables are numbered from 0.
  explicit LinearSystem(int freeVariables)
      : freeVariables_(freeVariables), nextSlack_(freeVariables) {}

  // Makes the form 0, or as close to 0 as possible. Returns true if this removed a degree of
  // freedom; false if the form already had its value, cannot be 0, or leads to numbers that are too
  // large.
  bool makeZero(LinearForm form);

  // Keeps the form at 0 or above, or as little below as possible. Does nothing if this leads to
  // numbers that are too large.
  void makeNonNegative(LinearForm form);

  // Empty while the free variable is not determined.
  std::optional<double> value(int freeVariable) const;

 private:
  LinearForm reduced(const LinearForm& form) const;
  std::optional<int> bestFreeVariable(const LinearForm& form) const;
  bool solveFor(int variable, const LinearForm& zero);
  bool hasRoomFor(int variable, const LinearForm& solution) const;
  std::optional<int> raiseToZero(LinearForm& form);
  std::optional<int> firstSlackToVanish(int growing, double within) const;
  bool exchange(int independent, int dependent);
  void fixAtZero(const LinearForm& slacks);

  int freeVariables_;
  int nextSlack_;  // slacks are numbered after the free variables
  std::map<int, LinearForm> rows_;
};

}  // namespace wifi_profile::toolkit
