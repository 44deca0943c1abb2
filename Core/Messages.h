#pragma once

#include "Core/String.h"

namespace Core {

/// The text of a numbered message; "message {number}" for a number that the table lacks.
String findMessage(int number);

}  // namespace Core
