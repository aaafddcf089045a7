#pragma once

class QWidget;

namespace corvane::desktop {

class FormWindow;

// The program's main window is a slim bar, not a work area: its menu, one row of tool bar and
// controls, and a panel below. It is exactly as large as what it shows (which changes with the
// buttons of the chosen system and with the panel shown or not), and a person cannot resize it.
class SlimBar {
public:
    static constexpr int ComboWidth = 150; // a choice in the row, before scaling
    static constexpr int LinkGap = 40;     // room ahead of a label in the row, before scaling
    static constexpr int PanelHeight = 22; // a panel below the row, before scaling

    // Arranges the widgets the layout put on body: fixed widths in the row, the panel's look.
    SlimBar(FormWindow& window, QWidget& body, double scale);

    // Gives the window the size of what it shows now.
    void Fit();

private:
    FormWindow& window_;
    QWidget& body_;
};

} // namespace corvane::desktop
