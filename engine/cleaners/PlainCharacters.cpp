// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/PlainCharacters.h"

namespace qf {

const char* plainQuote(char32_t character) {
  switch (character) {
    case U'‘':
    case U'’':
    case U'‚':
    case U'‛':
    case U'′':
    case U'ʼ':
      return "'";
    case U'“':
    case U'”':
    case U'„':
    case U'‟':
    case U'″':
      return "\"";
    default:
      return nullptr;
  }
}

const char* plainGuillemet(char32_t character) {
  switch (character) {
    case U'«':
      return "<<";
    case U'»':
      return ">>";
    case U'‹':
      return "<";
    case U'›':
      return ">";
    default:
      return nullptr;
  }
}

const char* plainDash(char32_t character) {
  switch (character) {
    case U'\u2010':
    case U'\u2011':
    case U'\u2012':
    case U'\u2212':
    case U'\u2013':
      return "-";
    case U'\u2014':
    case U'\u2015':
      return "--";
    default:
      return nullptr;
  }
}

const char* plainMark(char32_t character) {
  switch (character) {
    case U'…':
      return "...";
    case U'•':
    case U'‣':
    case U'◦':
    case U'⁃':
      return "*";
    case U'©':
      return "(c)";
    case U'®':
      return "(R)";
    case U'™':
      return "(TM)";
    case U'→':
      return "->";
    case U'←':
      return "<-";
    case U'×':
      return "x";
    default:
      return nullptr;
  }
}

const char* plainSymbol(char32_t character) {
  switch (character) {
    case U'∙':
    case U'●':
    case U'▪':
      return "*";
    case U'·':
      return ".";
    case U'↔':
      return "<->";
    case U'⇒':
      return "=>";
    case U'÷':
      return "/";
    case U'±':
      return "+/-";
    case U'≤':
      return "<=";
    case U'≥':
      return ">=";
    case U'≠':
      return "!=";
    case U'≈':
      return "~";
    case U'°':
      return "deg";
    case U'€':
      return "EUR";
    case U'£':
      return "GBP";
    case U'¥':
      return "JPY";
    case U'₹':
      return "INR";
    case U'₽':
      return "RUB";
    case U'¢':
      return "ct";
    case U'§':
      return "Sec.";
    default:
      return nullptr;
  }
}

}  // namespace qf
