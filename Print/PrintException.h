#pragma once

#include "Core/Exception.h"
#include "Print/Export.h"

#include <string>

namespace Drawing::Print {

/// A print document was asked for something that cannot be done, or not at this time; the message
/// says what, and what to do. Nothing of the call was drawn.
class PRINT_API PrintException : public Core::Exception {
public:
    explicit PrintException(std::string message);
    ~PrintException() override;
};

}  // namespace Drawing::Print
