#pragma once

/// Names of the print library, for headers that only mention them.
namespace Drawing::Print {

class ColorConverter;
class ContentWriter;
class DocumentParts;
class PrintDocument;
class PrintForm;
struct PrintSettings;
struct PrintingRequest;

}  // namespace Drawing::Print
