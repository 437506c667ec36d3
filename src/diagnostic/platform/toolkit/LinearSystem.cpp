#include "diagnostic/platform/toolkit/LinearSystem.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace wifi_profile::toolkit {
namespace {

// A sum smaller than this fraction of its larger addend is a rounding error.
constexpr double kCancellation = 1e-9;

// Beyond these limits the remaining digits have no meaning.
constexpr double kLargestCoefficient = 1e9;
constexpr double kLargestConstant = 1e15;

// A system of a few hundred inequalities needs far fewer. The limit ends loops that rounding errors
// would continue.
constexpr int kMostExchanges = 1000;

double largestCoefficient(const LinearForm& form) {
  double largest = 0;
  for (const auto& [variable, coefficient] : form.terms) {
    largest = std::max(largest, std::abs(coefficient));
  }
  return largest;
}

bool isUsable(double coefficient, double constant) {
  return coefficient <= kLargestCoefficient && std::abs(constant) <= kLargestConstant;
}

// Returns a rank. The greater the rank, the better the divisor.
std::tuple<bool, bool, double> divisorRank(double coefficient) {
  const double size = std::abs(coefficient);
  int exponent = 0;
  return {size == 1, std::frexp(size, &exponent) == 0.5 && std::abs(exponent) <= 10, size};
}

}  // namespace

void LinearForm::addTerm(int variable, double coefficient) {
  if (coefficient == 0) return;
  const auto [term, isNew] = terms.try_emplace(variable, coefficient);
  if (isNew) return;
  const double scale = std::max(std::abs(term->second), std::abs(coefficient));
  term->second += coefficient;
  if (std::abs(term->second) <= kCancellation * scale) terms.erase(term);
}

void LinearForm::add(double factor, const LinearForm& other) {
  constant += factor * other.constant;
  for (const auto& [variable, coefficient] : other.terms) addTerm(variable, factor * coefficient);
}

void LinearForm::negate() {
  constant = -constant;
  for (auto& [variable, coefficient] : terms) coefficient = -coefficient;
}

bool LinearSystem::makeZero(LinearForm form) {
  form = reduced(form);
  if (const auto variable = bestFreeVariable(form)) return solveFor(*variable, form);
  if (form.constant > 0) form.negate();
  const auto slack = raiseToZero(form);
  return slack && solveFor(*slack, form);
}

void LinearSystem::makeNonNegative(LinearForm form) {
  form = reduced(form);
  auto variable = bestFreeVariable(form);
  if (!variable && form.constant >= 0) {
    if (isUsable(largestCoefficient(form), form.constant)) rows_[nextSlack_++] = form;
    return;
  }
  if (!variable) variable = raiseToZero(form);
  if (!variable) return;
  form.addTerm(nextSlack_++, -1);
  solveFor(*variable, form);
}

std::optional<double> LinearSystem::value(int freeVariable) const {
  const auto row = rows_.find(freeVariable);
  if (row == rows_.end() || bestFreeVariable(row->second)) return std::nullopt;
  return row->second.constant + 0.0;  // turns -0 into 0
}

// Returns the form in terms of independent variables only.
LinearForm LinearSystem::reduced(const LinearForm& form) const {
  LinearForm result;
  result.constant = form.constant;
  for (const auto& [variable, coefficient] : form.terms) {
    const auto row = rows_.find(variable);
    if (row == rows_.end()) {
      result.addTerm(variable, coefficient);
    } else {
      result.add(coefficient, row->second);
    }
  }
  return result;
}

std::optional<int> LinearSystem::bestFreeVariable(const LinearForm& form) const {
  std::optional<int> best;
  for (const auto& [variable, coefficient] : form.terms) {
    if (variable >= freeVariables_) break;
    if (!best || divisorRank(coefficient) > divisorRank(form.terms.at(*best))) best = variable;
  }
  return best;
}

// Makes an independent variable dependent so that the form is 0. Returns false and changes nothing
// if numbers would become too large.
bool LinearSystem::solveFor(int variable, const LinearForm& zero) {
  const double divisor = -zero.terms.at(variable);
  LinearForm solution;
  solution.constant = zero.constant / divisor;
  for (const auto& [other, coefficient] : zero.terms) {
    if (other != variable) solution.addTerm(other, coefficient / divisor);
  }
  if (!hasRoomFor(variable, solution)) return false;
  for (auto& [dependent, row] : rows_) {
    const auto term = row.terms.extract(variable);
    if (term) row.add(term.mapped(), solution);
  }
  rows_[variable] = std::move(solution);
  return true;
}

bool LinearSystem::hasRoomFor(int variable, const LinearForm& solution) const {
  const double largest = largestCoefficient(solution);
  if (!isUsable(largest, solution.constant)) return false;
  return std::all_of(rows_.begin(), rows_.end(), [&](const auto& entry) {
    const LinearForm& row = entry.second;
    const auto term = row.terms.find(variable);
    if (term == row.terms.end()) return true;
    return isUsable(largestCoefficient(row) + std::abs(term->second) * largest,
                    row.constant + term->second * solution.constant);
  });
}

// Brings a form of slacks that is not above 0 as close to 0 as possible. Returns an independent
// slack that can grow until the form is 0; empty if there is no such slack.
std::optional<int> LinearSystem::raiseToZero(LinearForm& form) {
  for (int exchanges = 0; exchanges < kMostExchanges; ++exchanges) {
    if (!isUsable(largestCoefficient(form), form.constant)) return std::nullopt;
    // Always take the first of several: this prevents cycles of exchanges.
    const auto growing = std::find_if(form.terms.begin(), form.terms.end(),
                                      [](const auto& term) { return term.second > 0; });
    if (growing == form.terms.end()) {
      fixAtZero(form);
      return std::nullopt;
    }
    const int slack = growing->first;
    const auto vanishing = firstSlackToVanish(slack, -form.constant / growing->second);
    if (!vanishing) return slack;
    if (!exchange(slack, *vanishing)) return std::nullopt;
    form = reduced(form);
  }
  return std::nullopt;
}

// Returns the dependent slack that reaches 0 first if an independent slack grows by less than
// `within`.
std::optional<int> LinearSystem::firstSlackToVanish(int growing, double within) const {
  std::optional<int> first;
  for (auto row = rows_.lower_bound(freeVariables_); row != rows_.end(); ++row) {
    const auto term = row->second.terms.find(growing);
    if (term == row->second.terms.end() || term->second > 0) continue;
    const double room = std::max(row->second.constant, 0.0) / -term->second;
    if (room >= within) continue;
    within = room;
    first = row->first;
  }
  return first;
}

bool LinearSystem::exchange(int independent, int dependent) {
  LinearForm zero = rows_.at(dependent);
  zero.addTerm(dependent, -1);
  if (!solveFor(independent, zero)) return false;
  rows_.erase(dependent);
  return true;
}

void LinearSystem::fixAtZero(const LinearForm& slacks) {
  for (auto& [dependent, row] : rows_) {
    for (const auto& [slack, coefficient] : slacks.terms) row.terms.erase(slack);
  }
}

}  // namespace wifi_profile::toolkit
