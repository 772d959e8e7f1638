// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/StepFault.h"

#include <QCoreApplication>

#include "hosts/qt/QtText.h"

namespace qf {
namespace {

struct Explanation {
  std::string_view code;
  const char* text;
};
constexpr Explanation explanations[] = {
    {"U_REGEX_MISMATCHED_PAREN",
     QT_TRANSLATE_NOOP("qf::StepFault", "a parenthesis has no partner")},
    {"U_REGEX_MISSING_CLOSE_BRACKET",
     QT_TRANSLATE_NOOP("qf::StepFault", "a square bracket is not closed")},
    {"U_REGEX_BAD_ESCAPE_SEQUENCE",
     QT_TRANSLATE_NOOP("qf::StepFault", "a backslash stands before something it cannot")},
    {"U_REGEX_BAD_INTERVAL",
     QT_TRANSLATE_NOOP("qf::StepFault", "braces want a number, or two, in them")},
    {"U_REGEX_MAX_LT_MIN",
     QT_TRANSLATE_NOOP("qf::StepFault", "in braces the smaller number comes first")},
    {"U_REGEX_INVALID_BACK_REF",
     QT_TRANSLATE_NOOP("qf::StepFault", "there is no group of that number")},
    {"U_REGEX_INVALID_RANGE",
     QT_TRANSLATE_NOOP("qf::StepFault", "a range of characters runs backwards")},
    {"U_REGEX_LOOK_BEHIND_LIMIT",
     QT_TRANSLATE_NOOP("qf::StepFault", "looking behind needs a limited length")},
    {"U_REGEX_PROPERTY_SYNTAX",
     QT_TRANSLATE_NOOP("qf::StepFault", "there is no such kind of characters")},
    {"U_REGEX_RULE_SYNTAX", QT_TRANSLATE_NOOP("qf::StepFault", "something stands where it cannot")},
};

QString translated(const char* text) { return QCoreApplication::translate("qf::StepFault", text); }

QString explanation(const std::string& code) {
  for (const Explanation& known : explanations) {
    if (known.code == code) return translated(known.text);
  }
  return toQString(code);
}

}  // namespace

QString stepFault(const CustomStep& step) {
  const auto* replacement = std::get_if<FindReplace>(&step);
  if (!replacement) return {};
  if (replacement->find.empty()) {
    return translated(QT_TRANSLATE_NOOP("qf::StepFault", "There is nothing to find."));
  }
  const auto fault = expressionFault(*replacement);
  if (!fault) return {};
  return translated(QT_TRANSLATE_NOOP(
                        "qf::StepFault",
                        "The regular expression is wrong after its character number %1: %2."))
      .arg(fault->character)
      .arg(explanation(fault->code));
}

}  // namespace qf
