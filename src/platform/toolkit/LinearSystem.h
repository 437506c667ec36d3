// Linear equations and inequalities taken one after the other, each met as far as the earlier ones
// leave room. Pure arithmetic on values of no unit; one thread at a time.
#pragma once

#include <map>
#include <optional>

namespace wifi_profile::toolkit {

// A constant plus a sum of coefficient x variable.
struct LinearForm {
  double constant = 0;
  std::map<int, double> terms;  // by variable; no coefficient is 0

  // Coefficients that cancel out but for their rounding errors are removed.
  void add(double factor, const LinearForm& other);
  void addTerm(int variable, double coefficient);
  void negate();
};

// The system is kept solved: a dependent variable has a row, a form of independent ones.
// Independent are free variables, which nothing bounds, and slacks: an inequality `form >= 0` is
// the equation `form = slack`, where the slack is a variable that must not be negative. Free
// variables become dependent first, so that the rows of dependent slacks are forms of slacks only,
// and with all independent slacks at 0 no dependent one is negative. From there, slacks change
// places until the next form is met or no exchange brings it nearer; then the slacks that keep it
// away stay at 0.
//
// Divisors are 1 or -1 where there is a choice, else powers of two, else the largest. So whole
// numbers, halves and the like stay exact unless the equations themselves ask for other divisors.
class LinearSystem {
 public:
  // The free variables are numbered from 0.
  explicit LinearSystem(int freeVariables)
      : freeVariables_(freeVariables), nextSlack_(freeVariables) {}

  // Makes the form 0, or as nearly 0 as possible. True if that took away a choice that was left;
  // false if the form had its value already, cannot be 0, or leads to numbers beyond all use.
  bool makeZero(LinearForm form);

  // Keeps the form at 0 or above, or as little below as possible. Does nothing if that leads to
  // numbers beyond all use.
  void makeNonNegative(LinearForm form);

  // None while a free variable is not determined.
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
