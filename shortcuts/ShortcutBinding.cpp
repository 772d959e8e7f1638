// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/ShortcutBinding.h"

#include <utility>

#include "foundation/Log.h"
#include "shortcuts/ValueTransformer.h"

namespace qf {
namespace {

void logFault(const std::string& before, const std::string& binding, const std::string& after) {
  log(before + '"' + binding + '"' + after + "-[MASShortcutView propagateValue:forBinding:]");
}

}  // namespace

ShortcutBinding::ShortcutBinding(Info info, Setter setter)
    : _info(std::move(info)), _setter(std::move(setter)) {
  if (!_info.observedObject || !_info.observedKeyPath) return;
  _observer = _info.observedObject->addObserver(
      *_info.observedKeyPath, [this](const std::optional<Value>& value) { follow(value); });
}

ShortcutBinding::~ShortcutBinding() {
  if (_observer) _info.observedObject->removeObserver(*_observer);
}

const ValueTransformer* ShortcutBinding::transformer() const {
  if (_info.options.valueTransformer) return _info.options.valueTransformer;
  if (!_info.options.valueTransformerName) return nullptr;
  return ValueTransformer::valueTransformerForName(*_info.options.valueTransformerName);
}

void ShortcutBinding::follow(const std::optional<Value>& value) {
  if (std::exchange(_isPassingOn, true)) return;
  const ValueTransformer* transform = transformer();
  _setter(transform ? transform->transformedValue(value) : std::nullopt);
  _isPassingOn = false;
}

void ShortcutBinding::propagateValue(const std::optional<MASShortcut>& value) {
  if (std::exchange(_isPassingOn, true)) return;
  const ValueTransformer* transform = transformer();
  const bool isReversible = transform && transform->allowsReverseTransformation();
  if (transform && !isReversible) {
    logFault("WARNING: binding ", _info.name,
             " has value transformer, but it doesn't allow reverse transformations in ");
  }
  if (!_info.observedObject) {
    logFault("ERROR: NSObservedObjectKey was nil for binding ", _info.name, " in ");
  } else if (!_info.observedKeyPath) {
    logFault("ERROR: NSObservedKeyPathKey was nil for binding ", _info.name, " in ");
  } else if (isReversible) {
    _info.observedObject->setValue(transform->reverseTransformedValue(value),
                                   *_info.observedKeyPath);
  } else if (!value) {
    _info.observedObject->setValue(std::nullopt, *_info.observedKeyPath);
  } else {
    // A property list cannot hold an untransformed shortcut.
    log("user defaults cannot hold the shortcut of binding \"" + _info.name + '"');
  }
  _isPassingOn = false;
}

}  // namespace qf
