// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <list>
#include <memory>
#include <optional>
#include <unordered_map>

#include "foundation/Value.h"
#include "hosts/linux/clipboard/ClipboardAtoms.h"
#include "hosts/linux/clipboard/ClipboardContents.h"

namespace qf {

/// Gives the clipboard's contents to the applications that ask, to any number at a time, in pieces
/// where they are large (ICCCM 2.6 and 2.7.2). A requestor that goes away, or asks for no next
/// piece within 30 s, is forgotten. Never waits for one.
class ClipboardTransfers {
 public:
  ClipboardTransfers(XcbConnection& connection, const ClipboardAtoms& atoms);

  /// What is given from now on; null for nothing. Transfers under way go on with what they began.
  void offer(const ClipboardContents* contents, xcb_timestamp_t ownedSince);

  void answer(const xcb_selection_request_event_t& request);
  void propertyDeleted(xcb_window_t requestor, xcb_atom_t property);
  void requestorGone(xcb_window_t requestor);

  bool isBusy() const { return !_transfers.empty(); }
  /// When `forgetStalled` next has something to do.
  std::optional<XcbConnection::Clock::time_point> nextExpiry() const;
  void forgetStalled();

 private:
  struct Transfer {
    xcb_window_t requestor;
    xcb_atom_t property;
    xcb_atom_t type;
    std::shared_ptr<const Data> data;
    std::size_t sent = 0;
    XcbConnection::Clock::time_point expiry{};
  };
  struct Offer {
    xcb_atom_t type;
    std::shared_ptr<const Data> data;
  };

  bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
  bool convertMultiple(xcb_window_t requestor, xcb_atom_t property);
  void give(xcb_window_t requestor, xcb_atom_t property, const Offer& offer);
  void giveInPieces(Transfer transfer);
  void sendPiece(Transfer& transfer);
  void listenTo(xcb_window_t requestor, bool listens);
  void write(xcb_window_t requestor, xcb_atom_t property, xcb_atom_t type, int format,
             std::size_t count, const void* data);

  XcbConnection& _connection;
  const ClipboardAtoms& _atoms;
  const std::size_t _pieceSize;
  xcb_timestamp_t _ownedSince = XCB_CURRENT_TIME;
  bool _hasContents = false;
  std::unordered_map<xcb_atom_t, Offer> _offers;
  std::vector<xcb_atom_t> _targets;
  std::list<Transfer> _transfers;
};

}  // namespace qf
