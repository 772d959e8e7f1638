// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/MenuStyle.h"

namespace qf {

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
  switch (hint) {
    case SH_Menu_Scrollable:
      return 1;
    case SH_EtchDisabledText:  // the second, shifted copy blurs labels on a dark menu
      return 0;
    default:
      return QProxyStyle::styleHint(hint, option, widget, returnData);
  }
}

}  // namespace qf
