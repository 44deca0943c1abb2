#pragma once

#include <vector>

/// Names of the foundation library, for headers that only mention them.
namespace Core {

class ByteArray;
class DateTime;
class Object;
class String;
class StringFormatStream;
template <class T>
class SmartPtr;

template <class T>
using Vector = std::vector<T>;

namespace IO {
class FileStream;
class MemoryStream;
class Stream;
}  // namespace IO

namespace Threading {
class MTInteger;
}

}  // namespace Core
