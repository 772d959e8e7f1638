// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/SelectionFetch.h"

#include <algorithm>
#include <utility>

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto stallLimit = 1s;
constexpr auto wholeLimit = 3s;
constexpr std::size_t slowestBytesPerSecond = 10'000'000;
constexpr std::size_t byteLimit = std::size_t{256} << 20;

}  // namespace

SelectionFetch::SelectionFetch(XcbConnection& connection, const ClipboardAtoms& atoms)
    : _connection(connection),
      _atoms(atoms),
      _start(XcbConnection::Clock::now()),
      _remainingBytes(byteLimit) {}

std::vector<std::optional<SelectionData>> SelectionFetch::fetch(
    std::span<const xcb_atom_t> targets) {
  _conversions.assign(targets.size(), {});
  _unfinished = targets.size();
  for (Conversion& conversion : _conversions)
    conversion.window = _connection.createWindow(XCB_EVENT_MASK_PROPERTY_CHANGE);
  _lastProgress = XcbConnection::Clock::now();
  const auto time = targets.empty() ? 0 : serverTime(_conversions.front().window);
  for (std::size_t i = 0; i < targets.size(); ++i)
    xcb_convert_selection(_connection.get(), _conversions[i].window, _atoms.clipboard, targets[i],
                          _atoms.transfer, time);

  while (_unfinished > 0 && !_ownerFailed) {
    const auto event = _connection.nextEvent(limit());
    if (event) handle(*event);
    const bool isLate = _unfinished > 0 && XcbConnection::Clock::now() > limit();
    if (!event || isLate) _ownerFailed = true;
  }
  std::vector<std::optional<SelectionData>> result;
  for (Conversion& conversion : _conversions) {
    const bool isFinished = conversion.state == Conversion::State::finished;
    result.push_back(isFinished ? std::move(conversion.data) : std::nullopt);
    if (isFinished) {
      xcb_destroy_window(_connection.get(), conversion.window);
    } else {
      _connection.abandonWindow(conversion.window);
    }
  }
  xcb_flush(_connection.get());
  return result;
}

XcbConnection::Clock::time_point SelectionFetch::limit() const {
  const std::chrono::duration<double> forBytes(static_cast<double>(byteLimit - _remainingBytes) /
                                               slowestBytesPerSecond);
  const auto whole =
      wholeLimit + std::chrono::duration_cast<XcbConnection::Clock::duration>(forBytes);
  return std::min(_lastProgress + stallLimit, _start + whole);
}

// Asking with a time of our own instead of "now" keeps an owner that came later from answering.
// What arrived before is of an earlier reading, and is dropped.
xcb_timestamp_t SelectionFetch::serverTime(xcb_window_t window) {
  xcb_change_property(_connection.get(), XCB_PROP_MODE_APPEND, window, _atoms.transfer,
                      XCB_ATOM_INTEGER, 32, 0, nullptr);
  while (const auto event = _connection.nextEvent(_lastProgress + stallLimit)) {
    if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY) continue;
    const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
    if (changed.window == window) return changed.time;
  }
  return XCB_CURRENT_TIME;
}

void SelectionFetch::handle(const xcb_generic_event_t& event) {
  const int type = event.response_type & 0x7f;
  if (type == XCB_SELECTION_NOTIFY) {
    answered(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
  } else if (type == XCB_PROPERTY_NOTIFY) {
    const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    Conversion* conversion = conversionOf(changed.window);
    if (conversion && conversion->state == Conversion::State::incremental &&
        changed.atom == _atoms.transfer && changed.state == XCB_PROPERTY_NEW_VALUE)
      chunkArrived(*conversion);
  } else if (_connection.isSelectionNotice(event)) {
    // Only an owner that went away is reported here; a new one leaves the old one's work alone.
    _ownerFailed = true;
  }
}

void SelectionFetch::answered(const xcb_selection_notify_event_t& event) {
  Conversion* conversion = conversionOf(event.requestor);
  if (!conversion || conversion->state != Conversion::State::requested) return;
  if (event.property != _atoms.transfer) return finish(*conversion, false);
  const auto property = takeProperty(conversion->window);
  if (!property || property->type == XCB_ATOM_NONE) return finish(*conversion, false);
  conversion->data = SelectionData{property->type, property->format, {}};
  _lastProgress = XcbConnection::Clock::now();
  if (property->type == _atoms.incr) {
    // The owner tells a lower bound of the size.
    if (property->format == 32 && property->value_len > 0 &&
        *static_cast<std::uint32_t*>(xcb_get_property_value(property.get())) > _remainingBytes) {
      return tooLarge(*conversion);
    }
    conversion->state = Conversion::State::incremental;
    return;
  }
  append(*conversion->data, *property);
  if (property->bytes_after > 0) return tooLarge(*conversion);
  finish(*conversion, true);
}

void SelectionFetch::chunkArrived(Conversion& conversion) {
  const auto property = takeProperty(conversion.window);
  if (!property || property->type == XCB_ATOM_NONE) return;
  _lastProgress = XcbConnection::Clock::now();
  conversion.data->type = property->type;
  conversion.data->format = property->format;
  append(*conversion.data, *property);
  if (property->bytes_after > 0) return tooLarge(conversion);
  if (property->value_len == 0) finish(conversion, true);
}

// Takes the property away too, which asks the owner for the next piece.
XcbConnection::Owned<xcb_get_property_reply_t> SelectionFetch::takeProperty(xcb_window_t window) {
  const auto longs = static_cast<std::uint32_t>(_remainingBytes / 4 + 1);
  return _connection.reply(
      xcb_get_property_reply,
      xcb_get_property(_connection.get(), 1, window, _atoms.transfer, XCB_ATOM_ANY, 0, longs));
}

void SelectionFetch::append(SelectionData& data, const xcb_get_property_reply_t& property) {
  const auto* begin = static_cast<const std::uint8_t*>(xcb_get_property_value(&property));
  const auto length = static_cast<std::size_t>(xcb_get_property_value_length(&property));
  data.bytes.insert(data.bytes.end(), begin, begin + length);
  _remainingBytes -= std::min(length, _remainingBytes);
}

void SelectionFetch::tooLarge(Conversion& conversion) {
  _wasTooLarge = true;
  finish(conversion, false);
  conversion.state = Conversion::State::refused;  // its owner may be about to give the next piece
}

void SelectionFetch::finish(Conversion& conversion, bool isWhole) {
  if (!isWhole) conversion.data.reset();
  conversion.state = Conversion::State::finished;
  _lastProgress = XcbConnection::Clock::now();
  --_unfinished;
}

SelectionFetch::Conversion* SelectionFetch::conversionOf(xcb_window_t window) {
  const auto found = std::ranges::find(_conversions, window, &Conversion::window);
  return found == _conversions.end() ? nullptr : &*found;
}

}  // namespace qf
