#pragma once

namespace corvane::reports {

// Paper sizes as the printer knows them; A4 carries the printer's own code for it.
enum class PaperSize { Default = 0, Letter = 1, A4 = 9 };
enum class Orientation { Portrait, Landscape };

// A report's paper, in tenths of a millimetre as reports are designed. Default paper is Letter.
struct TQRPage {
    reports::PaperSize PaperSize = reports::PaperSize::Default;
    reports::Orientation Orientation = reports::Orientation::Portrait;
    int TopMargin = 127;
    int BottomMargin = 127;
    int LeftMargin = 127;
    int RightMargin = 127;

    // The sheet as laid out, after the orientation: width and height in tenths of a millimetre.
    int PaperWidth() const;
    int PaperLength() const;
};

// What the print dialog chose, kept for the printer renderer: pages from FirstPage to LastPage
// (0 for all), Copies of them, on the printer of that index (-1 for the default).
struct TQRPrinterSettings {
    int PrinterIndex = -1;
    int FirstPage = 0;
    int LastPage = 0;
    int Copies = 1;
    int OutputBin = 0;
};

// Tenths of a millimetre to points.
inline double TenthsMmToPoints(int tenths) {
    return tenths * 72.0 / 254.0;
}

} // namespace corvane::reports
