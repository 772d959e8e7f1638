// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKAEConnector.h"

#include <algorithm>
#include <utility>

#include "foundation/KeyedArchive.h"
#include "foundation/Log.h"
#include "foundation/PropertyList.h"
#include "host/DistributedNotificationCenter.h"
#include "host/Workspace.h"
#include "kit/QFKAEConnectorDelegate.h"
#include "kit/QFKIdentifiers.h"

namespace qf {
namespace {

constexpr FourCharCode commandClass = fourCharCode("Fold");
constexpr FourCharCode commandID = fourCharCode("qfS2");
constexpr FourCharCode oldServerCommandID = fourCharCode("qfSv");

// never interact, can switch layer, do not record
constexpr std::int32_t sendMode = 0x10 | 0x40 | 0x1000;

void setIfPresent(Dictionary& message, std::string_view key, std::optional<Value> value) {
  if (value) message.set(key, *std::move(value));
}

std::optional<Value> valueForKey(const Dictionary& message, std::string_view key) {
  const Value* value = message.find(key);
  return value ? std::optional(*value) : std::nullopt;
}

void logFailedLaunch(const std::optional<Error>& error) {
  if (error) log("Launch of Quenfold Application failed: " + error->localizedDescription);
}

}  // namespace

QFKAEConnector::QFKAEConnector(AppleEvents& appleEvents, Workspace& workspace,
                               DistributedNotificationCenter& distributedNotificationCenter)
    : _appleEvents(appleEvents),
      _workspace(workspace),
      _distributedNotificationCenter(distributedNotificationCenter) {}

std::string QFKAEConnector::remoteAppBundleIdentifier() const {
  return _delegate ? _delegate->remoteAppBundleIdentifier() : std::string();
}

bool QFKAEConnector::remoteAppHasAgentMode() const {
  return _delegate && _delegate->remoteAppHasAgentMode();
}

bool QFKAEConnector::receivesCommands() const { return _delegate && _delegate->receivesCommands(); }

void QFKAEConnector::setupIncomingCommandsReceiver() {
  if (!receivesCommands()) return;
  using Form = std::optional<Data> (QFKAEConnector::*)(const Data&);
  const auto receive = [this](FourCharCode eventID, Form form) {
    const std::weak_ptr<QFKAEConnector*> receiver = _self;
    _appleEvents.setEventHandler(commandClass, eventID,
                                 [receiver, form](const Data& message) -> std::optional<Data> {
                                   const auto connector = receiver.lock();
                                   if (!connector) return std::nullopt;
                                   return ((*connector)->*form)(message);
                                 });
  };
  receive(commandID, &QFKAEConnector::handleAppleEvent);
  receive(oldServerCommandID, &QFKAEConnector::handleOldServerAppleEvent);
}

std::optional<Data> QFKAEConnector::handleAppleEvent(const Data& message) {
  const auto decoded = unarchiveKeyed(message);
  if (!decoded) return std::nullopt;
  const auto answer = answerTo(*decoded);
  if (!answer) return std::nullopt;
  auto archive = archiveKeyed(*answer);
  if (!archive) return std::nullopt;
  return *std::move(archive);
}

std::optional<Data> QFKAEConnector::handleOldServerAppleEvent(const Data& message) {
  const auto decoded = readPropertyList(message, PropertyListLimits::message());
  if (!decoded) {
    log("Error : " + decoded.error().localizedDescription);
    return std::nullopt;
  }
  const auto answer = answerTo(*decoded);
  if (!answer) return std::nullopt;
  auto serialised = writePropertyList(*answer, PropertyListFormat::xml);
  if (!serialised) {
    log("Error: " + serialised.error().localizedDescription);
    return std::nullopt;
  }
  return *std::move(serialised);
}

std::optional<Value> QFKAEConnector::answerTo(const Value& message) {
  const Dictionary* fields = message.dictionary();
  if (!fields) return std::nullopt;
  std::optional<std::string_view> command;
  if (const auto name = fields->string("command")) command = *name;
  return processReceivedCommand(command, valueForKey(*fields, "param1"),
                                valueForKey(*fields, "param2"));
}

std::optional<Value> QFKAEConnector::processReceivedCommand(std::optional<std::string_view> command,
                                                            std::optional<Value> param1,
                                                            std::optional<Value> param2) {
  if (!_delegate) {
    log("delegate required to handle processReceivedCommand:param1:param2:");
    return std::nullopt;
  }
  return _delegate->processReceivedCommand(command, std::move(param1), std::move(param2));
}

std::optional<Value> QFKAEConnector::sendRemoteCommand(std::string_view command,
                                                       std::optional<Value> param1,
                                                       std::optional<Value> param2,
                                                       bool waitForReply) {
  launchRemoteAppAsNeeded();

  Dictionary message;
  message.set("command", command);
  setIfPresent(message, "param1", std::move(param1));
  setIfPresent(message, "param2", std::move(param2));
  auto archive = archiveKeyed(std::move(message));
  if (!archive) return std::nullopt;

  AppleEvent event;
  event.eventClass = commandClass;
  event.eventID = commandID;
  event.target = targetDescriptorForBundleID(remoteAppBundleIdentifier());
  event.data = *std::move(archive);
  Data reply;
  const AppleEventStatus status = _appleEvents.sendMessage(
      event, waitForReply ? sendMode | AppleEvents::waitReplyMask : sendMode,
      AppleEvents::defaultTimeout, reply);
  if (status != AppleEventStatus::noError) {
    log("AppleEvent Error: " + std::to_string(static_cast<std::int32_t>(status)));
    return std::nullopt;
  }
  if (reply.empty()) return std::nullopt;
  auto answer = unarchiveKeyed(reply);
  if (!answer) return std::nullopt;
  return *std::move(answer);
}

bool QFKAEConnector::isRemoteAppRunning() const {
  return !_workspace.runningApplicationsWithBundleIdentifier(remoteAppBundleIdentifier()).empty();
}

void QFKAEConnector::launchRemoteAppAsNeeded() { launchRemoteAppAsAgent(); }

bool QFKAEConnector::launchRemoteAppAsAgent() {
  if (isRemoteAppRunning()) return true;
  LaunchOptions options{LaunchOptions::hidden | LaunchOptions::withoutActivation, {}};
  if (remoteAppHasAgentMode()) options.arguments = {"--agent"};
  const std::string bundleIdentifier = remoteAppBundleIdentifier();
  const auto url = _workspace.URLForApplicationWithBundleIdentifier(bundleIdentifier);
  if (!url) {
    log("Unable to find App URL for " + bundleIdentifier);
    return false;
  }
  const auto error = _workspace.launchApplicationAtURL(*url, options);
  logFailedLaunch(error);
  return !error;
}

void QFKAEConnector::launchRemoteAppWithUI() {
  if (!remoteAppHasAgentMode()) {
    log("Calling launchRemoteAppWithUI on remote app that does not have agent mode available.");
    launchRemoteAppAsAgent();
    return;
  }
  const std::string bundleIdentifier = remoteAppBundleIdentifier();
  const auto instances = _workspace.runningApplicationsWithBundleIdentifier(bundleIdentifier);
  LaunchOptions options{LaunchOptions::asynchronous, {}};
  if (std::any_of(instances.begin(), instances.end(), [](const RunningApplication& instance) {
        return instance.activationPolicy == ActivationPolicy::accessory;
      })) {
    _distributedNotificationCenter.post(SharedGroupsDataChangedNotification);
    options.flags |= LaunchOptions::newInstance;
  }
  // With an empty path the launch fails and logs why.
  const auto url = _workspace.URLForApplicationWithBundleIdentifier(bundleIdentifier);
  logFailedLaunch(
      _workspace.launchApplicationAtURL(url.value_or(std::filesystem::path()), options));
}

AppleEventTarget QFKAEConnector::targetDescriptorForBundleID(
    std::string_view bundleIdentifier) const {
  AppleEventTarget target;
  const auto instances = _workspace.runningApplicationsWithBundleIdentifier(bundleIdentifier);
  if (instances.size() >= 2) {
    log("Warning: Multiple instances of app with bundleID '" + std::string(bundleIdentifier) +
        "' found. Cannot guarantee which processes AppleEvent.");
  }
  if (instances.empty()) {
    log("Error: While creating target, runningApplication = nil");
  } else {
    target.processIdentifier = instances.back().processIdentifier;
  }
  return target;
}

}  // namespace qf
