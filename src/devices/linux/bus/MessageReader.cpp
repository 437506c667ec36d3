#include "devices/linux/bus/MessageReader.h"

#include <sdbus-c++/sdbus-c++.h>

namespace wifi_profile::linux::bus {

namespace {

constexpr int kDeepest = 16;
constexpr std::size_t kLargest = std::size_t{4} << 20;
constexpr std::size_t kSizeOfValue = 32;

class MessageReader {
 public:
  explicit MessageReader(sdbus::Message& message) : message_(message) {}

  // Reads to the end of the message, or of the container that the reader has entered.
  BusValue::List readList(int depth) {
    BusValue::List values;
    while (!tooLarge_ && !atEnd()) values.push_back(readValue(depth));
    return values;
  }
  bool isTooLarge() const { return tooLarge_; }

 private:
  bool atEnd() {
    message_.peekType(type_, contents_);
    return type_.empty() || type_[0] == '\0';
  }

  template <class T>
  T read() {
    T value{};
    message_ >> value;
    return value;
  }

  bool count(std::size_t bytes) {
    left_ -= std::min(left_, bytes);
    tooLarge_ = tooLarge_ || left_ == 0;
    return !tooLarge_;
  }

  BusValue readValue(int depth);
  BusValue readArray(int depth);
  BusValue readBytes();
  BusValue readMap(int depth);
  template <class T>
  BusValue readText() {
    std::string text = read<T>();
    if (!count(text.size()) || text.size() > kLongestBusText) return {};
    return BusValue(std::move(text));
  }

  sdbus::Message& message_;
  std::string type_;  // of the next value
  std::string contents_;
  std::size_t left_ = kLargest;
  bool tooLarge_ = false;
};

BusValue MessageReader::readValue(int depth) {
  tooLarge_ = tooLarge_ || depth > kDeepest;
  if (!count(kSizeOfValue)) return {};
  const auto integer = [](std::int64_t value) { return BusValue(value); };
  const auto natural = [](std::uint64_t value) { return BusValue(value); };
  switch (type_[0]) {
    case 'b':
      return BusValue(read<bool>());
    case 'y':
      return natural(read<std::uint8_t>());
    case 'q':
      return natural(read<std::uint16_t>());
    case 'u':
      return natural(read<std::uint32_t>());
    case 't':
      return natural(read<std::uint64_t>());
    case 'n':
      return integer(read<std::int16_t>());
    case 'i':
      return integer(read<std::int32_t>());
    case 'x':
      return integer(read<std::int64_t>());
    case 'd':
      return BusValue(read<double>());
    case 's':
      return readText<std::string>();
    case 'o':
      return readText<sdbus::ObjectPath>();
    case 'g':
      return readText<sdbus::Signature>();
    case 'h':
      read<sdbus::UnixFd>();
      return {};
    case 'a':
      return readArray(depth);
    case 'v': {
      message_.enterVariant(contents_);
      BusValue value = atEnd() ? BusValue() : readValue(depth + 1);
      if (!tooLarge_) message_.exitVariant();
      return value;
    }
    case 'r': {
      message_.enterStruct(contents_);
      BusValue::List members = readList(depth + 1);
      if (!tooLarge_) message_.exitStruct();
      return BusValue(std::move(members));
    }
    default:
      throw sdbus::Error("org.freedesktop.DBus.Error.InvalidSignature");
  }
}

BusValue MessageReader::readArray(int depth) {
  const std::string contents = contents_;
  message_.enterContainer(contents);
  BusValue value;
  if (contents == "y") {
    value = readBytes();
  } else if (contents.starts_with('{')) {
    value = readMap(depth + 1);
  } else {
    value = BusValue(readList(depth + 1));
  }
  if (!tooLarge_) message_.exitContainer();
  return value;
}

BusValue MessageReader::readBytes() {
  std::string bytes;
  bool tooLong = false;
  while (!atEnd()) {
    if (!count(1)) return {};
    const auto byte = static_cast<char>(read<std::uint8_t>());
    tooLong = bytes.size() == kLongestBusText;
    if (!tooLong) bytes.push_back(byte);
  }
  return tooLong ? BusValue() : BusValue(BusValue::Bytes{std::move(bytes)});
}

BusValue MessageReader::readMap(int depth) {
  BusValue::Map map;
  while (!tooLarge_ && !atEnd()) {
    message_.enterDictEntry(contents_);
    if (atEnd()) break;
    const BusValue key = readValue(depth);
    if (tooLarge_ || atEnd()) break;
    BusValue value = readValue(depth);
    if (tooLarge_) break;
    message_.exitDictEntry();
    if (auto text = key.text()) {
      map.insert_or_assign(std::move(*text), std::move(value));
    } else if (const auto number = key.integer()) {
      map.insert_or_assign(std::to_string(*number), std::move(value));
    }
  }
  return BusValue(std::move(map));
}

}  // namespace

std::optional<std::vector<BusValue>> readMessage(sdbus::Message& message) {
  MessageReader reader(message);
  std::vector<BusValue> values = reader.readList(0);
  return reader.isTooLarge() ? std::nullopt : std::optional(std::move(values));
}

}  // namespace wifi_profile::linux::bus
