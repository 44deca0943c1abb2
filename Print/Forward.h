#pragma once

/// Names of the print library, for headers that only mention them.
namespace Drawing::Print {

class ColorConverter;
class ContentWriter;
class DocumentParts;
class PrintDocument;
class PrintForm;
struct Place;
struct PrintSettings;
struct PrintingRequest;
struct TextRun;

}  // namespace Drawing::Print
