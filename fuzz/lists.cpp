// SPDX-License-Identifier: Apache-2.0
// The list file: whatever it holds, every question of menu and palette has an answer.
#include "fuzz/Checks.h"
#include "kit/QFKListModel.h"
#include "tests/support/FakeBundle.h"
#include "tests/support/LogCapture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace qf;
  const auto value = readPropertyList({bytes, size}, PropertyListLimits::message());
  if (!value || !value->dictionary()) return 0;
  const LogCapture log;
  const FakeBundle bundle;
  QFKListModel model(bundle);
  model.setListInfo(*value->dictionary());
  for (const auto& names : {model.builtInGroupNames(), model.userGroupNames()}) {
    for (const std::string& group : names.value_or(std::vector<std::string>())) {
      const std::vector<std::string> tokens = model.tokenListForGroup(group);
      for (std::size_t i = 0; i < tokens.size(); ++i) {
        model.nameForToken(tokens[i]);
        model.descriptionForToken(tokens[i]);
        model.tokenForName(tokens[i]);
        model.colorForItem(tokens[i], group);
        model.colorAtIndex(static_cast<std::int64_t>(i), group);
      }
    }
  }
  for (const std::string& name : model.textEncodingList().value_or(std::vector<std::string>())) {
    model.isValidTextEncoding(name);
  }
  return 0;
}
