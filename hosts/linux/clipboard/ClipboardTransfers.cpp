// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/ClipboardTransfers.h"

#include <algorithm>
#include <span>
#include <utility>

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto requestorPatience = 30s;
// Larger pieces save little and make the server hold more.
constexpr std::size_t largestPiece = std::size_t{1} << 20;
constexpr std::uint32_t mostPairs = 1024;

}  // namespace

ClipboardTransfers::ClipboardTransfers(XcbConnection& connection, const ClipboardAtoms& atoms)
    : _connection(connection),
      _atoms(atoms),
      _pieceSize(connection.isAlive() ? std::min(largestPiece, connection.maximumPropertySize())
                                      : largestPiece) {}

void ClipboardTransfers::offer(const ClipboardContents* contents, xcb_timestamp_t ownedSince) {
  _ownedSince = ownedSince;
  _hasContents = contents != nullptr;
  _offers.clear();
  _targets = {_atoms.targets, _atoms.timestamp, _atoms.multiple, _atoms.saveTargets};
  if (!contents) return;
  std::vector<std::string> names;
  for (const auto& offered : contents->offers()) {
    names.push_back(offered.target);
    names.push_back(offered.type);
  }
  const auto atoms = _connection.atoms(names);
  for (std::size_t i = 0; i < contents->offers().size(); ++i) {
    _offers[atoms[2 * i]] = {atoms[2 * i + 1], contents->offers()[i].data};
    _targets.push_back(atoms[2 * i]);
  }
}

void ClipboardTransfers::answer(const xcb_selection_request_event_t& request) {
  // Requestors from before ICCCM name no property.
  const xcb_atom_t property = request.property == XCB_ATOM_NONE ? request.target : request.property;
  // ICCCM 2.2 wants requests from before our time refused. But a toolkit asks with the time of the
  // last event it looked at, and a Paste pressed right after a change overtakes the event that
  // tells of the change: refused, it would paste nothing.
  const bool isGiven =
      _hasContents && request.selection == _atoms.clipboard &&
      (request.target == _atoms.multiple
           ? request.property != XCB_ATOM_NONE && convertMultiple(request.requestor, property)
           : convert(request.requestor, request.target, property));
  xcb_selection_notify_event_t notice{};
  notice.response_type = XCB_SELECTION_NOTIFY;
  notice.time = request.time;
  notice.requestor = request.requestor;
  notice.selection = request.selection;
  notice.target = request.target;
  notice.property = isGiven ? property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  char bytes[32] = {};
  static_assert(sizeof notice <= sizeof bytes);
  std::copy_n(reinterpret_cast<const char*>(&notice), sizeof notice, bytes);
  xcb_send_event(_connection.get(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, bytes);
}

bool ClipboardTransfers::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) {
  if (target == _atoms.targets) {
    write(requestor, property, XCB_ATOM_ATOM, 32, _targets.size(), _targets.data());
  } else if (target == _atoms.timestamp) {
    write(requestor, property, XCB_ATOM_INTEGER, 32, 1, &_ownedSince);
  } else if (target == _atoms.saveTargets) {
    write(requestor, property, _atoms.null, 32, 0, nullptr);
  } else if (const auto offer = _offers.find(target); offer != _offers.end()) {
    give(requestor, property, offer->second);
  } else {
    return false;
  }
  return true;
}

bool ClipboardTransfers::convertMultiple(xcb_window_t requestor, xcb_atom_t property) {
  const auto list = _connection.reply(
      xcb_get_property_reply,
      xcb_get_property(_connection.get(), 0, requestor, property, XCB_ATOM_ANY, 0, 2 * mostPairs));
  if (!list || list->format != 32) return false;
  auto* atoms = static_cast<xcb_atom_t*>(xcb_get_property_value(list.get()));
  const std::span pairs(atoms, std::size_t{list->value_len / 2} * 2);
  for (std::size_t i = 0; i < pairs.size(); i += 2) {
    const bool isPlain = pairs[i] != _atoms.multiple && pairs[i + 1] != XCB_ATOM_NONE;
    if (!isPlain || !convert(requestor, pairs[i], pairs[i + 1])) pairs[i + 1] = XCB_ATOM_NONE;
  }
  write(requestor, property, _atoms.atomPair, 32, pairs.size(), pairs.data());
  return true;
}

void ClipboardTransfers::give(xcb_window_t requestor, xcb_atom_t property, const Offer& offer) {
  if (offer.data->size() > _pieceSize) {
    giveInPieces({requestor, property, offer.type, offer.data});
  } else {
    write(requestor, property, offer.type, 8, offer.data->size(), offer.data->data());
  }
}

void ClipboardTransfers::giveInPieces(Transfer transfer) {
  // Asking anew for the same property gives up what was under way there.
  std::erase_if(_transfers, [&](const Transfer& other) {
    return other.requestor == transfer.requestor && other.property == transfer.property;
  });
  listenTo(transfer.requestor, true);
  const auto size =
      static_cast<std::uint32_t>(std::min<std::size_t>(transfer.data->size(), INT32_MAX));
  write(transfer.requestor, transfer.property, _atoms.incr, 32, 1, &size);
  transfer.expiry = XcbConnection::Clock::now() + requestorPatience;
  _transfers.push_back(std::move(transfer));
}

void ClipboardTransfers::propertyDeleted(xcb_window_t requestor, xcb_atom_t property) {
  const auto transfer = std::ranges::find_if(_transfers, [&](const Transfer& candidate) {
    return candidate.requestor == requestor && candidate.property == property;
  });
  if (transfer == _transfers.end()) return;
  const bool isLast = transfer->sent == transfer->data->size();
  sendPiece(*transfer);
  if (!isLast) return;
  _transfers.erase(transfer);
  if (std::ranges::find(_transfers, requestor, &Transfer::requestor) == _transfers.end())
    listenTo(requestor, false);
}

// A piece of no length says that the one before was the last.
void ClipboardTransfers::sendPiece(Transfer& transfer) {
  const std::size_t length = std::min(_pieceSize, transfer.data->size() - transfer.sent);
  write(transfer.requestor, transfer.property, transfer.type, 8, length,
        transfer.data->data() + transfer.sent);
  transfer.sent += length;
  transfer.expiry = XcbConnection::Clock::now() + requestorPatience;
}

void ClipboardTransfers::requestorGone(xcb_window_t requestor) {
  std::erase_if(_transfers,
                [&](const Transfer& transfer) { return transfer.requestor == requestor; });
}

std::optional<XcbConnection::Clock::time_point> ClipboardTransfers::nextExpiry() const {
  const auto first = std::ranges::min_element(_transfers, {}, &Transfer::expiry);
  if (first == _transfers.end()) return std::nullopt;
  return first->expiry;
}

void ClipboardTransfers::forgetStalled() {
  const auto now = XcbConnection::Clock::now();
  std::erase_if(_transfers, [&](const Transfer& transfer) { return transfer.expiry <= now; });
}

void ClipboardTransfers::listenTo(xcb_window_t requestor, bool listens) {
  const std::uint32_t events =
      listens ? XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY
              : XCB_EVENT_MASK_NO_EVENT;
  xcb_change_window_attributes(_connection.get(), requestor, XCB_CW_EVENT_MASK, &events);
}

void ClipboardTransfers::write(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type,
                               int format, std::size_t count, const void* data) {
  xcb_change_property(_connection.get(), XCB_PROP_MODE_REPLACE, requestor, property, type,
                      static_cast<std::uint8_t>(format), static_cast<std::uint32_t>(count), data);
}

}  // namespace qf
