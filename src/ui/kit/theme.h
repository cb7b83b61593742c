// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <cmath>

class QJSEngine;
class QQmlEngine;

namespace pimloft {

class AppearanceService;

/// The colours of one look. A value.
struct ThemeColors {
    Q_GADGET
    QML_VALUE_TYPE(themeColors)
    Q_PROPERTY(QColor window MEMBER window)
    Q_PROPERTY(QColor sidebar MEMBER sidebar)
    Q_PROPERTY(QColor card MEMBER card)
    Q_PROPERTY(QColor outline MEMBER outline)
    Q_PROPERTY(QColor separator MEMBER separator)
    Q_PROPERTY(QColor text MEMBER text)
    Q_PROPERTY(QColor secondaryText MEMBER secondaryText)
    Q_PROPERTY(QColor accent MEMBER accent)
    Q_PROPERTY(QColor accentEnd MEMBER accentEnd)
    Q_PROPERTY(QColor accentPressed MEMBER accentPressed)
    Q_PROPERTY(QColor onAccent MEMBER onAccent)
    Q_PROPERTY(QColor accentText MEMBER accentText)
    Q_PROPERTY(QColor accentSoft MEMBER accentSoft)
    Q_PROPERTY(QColor control MEMBER control)
    Q_PROPERTY(QColor controlHovered MEMBER controlHovered)
    Q_PROPERTY(QColor controlPressed MEMBER controlPressed)
    Q_PROPERTY(QColor controlOutline MEMBER controlOutline)
    Q_PROPERTY(QColor hovered MEMBER hovered)
    Q_PROPERTY(QColor unlit MEMBER unlit)
    Q_PROPERTY(QColor track MEMBER track)
    Q_PROPERTY(QColor knob MEMBER knob)
    Q_PROPERTY(QColor success MEMBER success)
    Q_PROPERTY(QColor successSoft MEMBER successSoft)
    Q_PROPERTY(QColor warning MEMBER warning)
    Q_PROPERTY(QColor warningSoft MEMBER warningSoft)
    Q_PROPERTY(QColor danger MEMBER danger)
    Q_PROPERTY(QColor pinned MEMBER pinned)
    Q_PROPERTY(QColor focusRing MEMBER focusRing)
    Q_PROPERTY(QColor shade MEMBER shade)

public:
    QColor window;          ///< behind everything
    QColor sidebar;         ///< behind the list of pages
    QColor card;            ///< behind the rows of a section
    QColor outline;         ///< around cards and popovers
    QColor separator;       ///< between rows
    QColor text;            ///< on window, sidebar and card
    QColor secondaryText;   ///< on window, sidebar and card
    QColor accent;          ///< what is on, selected or prominent
    QColor accentEnd;       ///< where the brand's gradient runs to from `accent`
    QColor accentPressed;   ///< `accent` under the finger
    QColor onAccent;        ///< text on `accent`
    QColor accentText;      ///< tinted text and symbols on window, card and accentSoft
    QColor accentSoft;      ///< a light wash of the accent
    QColor control;         ///< the face of a plain button
    QColor controlHovered;  ///< under the pointer
    QColor controlPressed;  ///< under the finger
    QColor controlOutline;  ///< around it
    QColor hovered;         ///< a row under the pointer
    QColor unlit;           ///< behind the symbol of what is off
    QColor track;           ///< a switch that is off, a slider's empty part
    QColor knob;            ///< of switches and sliders
    QColor success;         ///< text and symbols on card and successSoft
    QColor successSoft;
    QColor warning;  ///< text and symbols on window, card and warningSoft
    QColor warningSoft;
    QColor danger;     ///< symbols and text, on window and card, of what is silenced, lost or taken away
    QColor pinned;     ///< the mark of what is kept, on window
    QColor focusRing;  ///< around what has the keyboard
    QColor shade;      ///< over a window behind a sheet; lets it shine through

    static ThemeColors light();
    static ThemeColors dark();
    static ThemeColors lightHighContrast();
    static ThemeColors darkHighContrast();
};

/// How everything looks: colours that follow the desktop between light and dark and to high contrast, the
/// type scale that follows its font, and the measures that all controls share, in points. Main thread.
class Theme : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Theme)
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(bool isHighContrast READ isHighContrast NOTIFY changed)
    Q_PROPERTY(pimloft::ThemeColors colors READ colors NOTIFY changed)
    Q_PROPERTY(QFont title READ title CONSTANT)
    Q_PROPERTY(QFont headline READ headline CONSTANT)
    Q_PROPERTY(QFont body READ body CONSTANT)
    Q_PROPERTY(QFont callout READ callout CONSTANT)
    Q_PROPERTY(QFont calloutBold READ calloutBold CONSTANT)
    Q_PROPERTY(QFont caption READ caption CONSTANT)
    Q_PROPERTY(QFont display READ display CONSTANT)
    Q_PROPERTY(QFont hero READ hero CONSTANT)
    Q_PROPERTY(QColor brand READ brand CONSTANT)
    Q_PROPERTY(QColor brandEnd READ brandEnd CONSTANT)
    Q_PROPERTY(QFont keys READ keys CONSTANT)
    Q_PROPERTY(QFont keysCaption READ keysCaption CONSTANT)
    Q_PROPERTY(double unit MEMBER unit CONSTANT)
    Q_PROPERTY(double rowHeight READ rowHeight CONSTANT)
    Q_PROPERTY(double controlHeight READ controlHeight CONSTANT)
    Q_PROPERTY(double symbolSize READ symbolSize CONSTANT)
    Q_PROPERTY(double cardRadius MEMBER cardRadius CONSTANT)
    Q_PROPERTY(double controlRadius MEMBER controlRadius CONSTANT)
    Q_PROPERTY(double pageWidth READ pageWidth CONSTANT)
    Q_PROPERTY(double panelListHeight READ panelListHeight CONSTANT)
    Q_PROPERTY(int quick READ quick NOTIFY changed)
    Q_PROPERTY(int calm READ calm NOTIFY changed)

public:
    static Theme &shared();
    explicit Theme(AppearanceService &appearance);
    ~Theme() override;

    /// For QML: the shared one, which no engine owns.
    static Theme *create(QQmlEngine *, QJSEngine *);

    bool isDark() const { return isDark_; }
    bool isHighContrast() const { return isHighContrast_; }
    const ThemeColors &colors() const { return colors_; }

    /// How long an animation takes that answers a touch, and one that moves something, in milliseconds.
    /// Nothing moves where the user does not want it.
    int quick() const { return reducesMotion_ ? 0 : 90; }
    int calm() const { return reducesMotion_ ? 0 : 160; }

    QFont title() const { return font(1.25, QFont::DemiBold); }
    QFont headline() const { return font(1, QFont::DemiBold); }
    QFont body() const { return font(1, QFont::Normal); }
    QFont callout() const { return font(0.95, QFont::Normal); }
    QFont calloutBold() const { return font(0.95, QFont::DemiBold); }
    QFont caption() const { return font(0.86, QFont::Normal); }
    /// For one number that a window is about: 48 points high, whatever the desktop's font.
    QFont display() const;
    /// For what a window welcomes with.
    QFont hero() const { return font(1.7, QFont::DemiBold); }
    /// The brand's gradient, which is the same in every look.
    QColor brand() const { return ThemeColors::light().accent; }
    QColor brandEnd() const { return ThemeColors::light().accentEnd; }
    /// For the names of keys: all digits and carets equally wide.
    QFont keys() const { return keyFont(0.9); }
    QFont keysCaption() const { return keyFont(0.82); }

    double rowHeight() const { return std::round(bodySize_ * 3.1); }
    double controlHeight() const { return std::round(bodySize_ * 2.1); }
    double symbolSize() const { return std::round(bodySize_ * 1.35); }
    /// The most that a page of settings spreads its rows.
    double pageWidth() const { return std::round(bodySize_ * 42); }
    /// The most that a list in a panel grows to before it scrolls.
    double panelListHeight() const { return std::round(bodySize_ * 30); }

signals:
    void changed();

private:
    QFont font(double factor, QFont::Weight weight) const;
    QFont keyFont(double factor) const;
    /// Whether anything has changed.
    bool read();

    AppearanceService &appearance_;
    bool isDark_ = false;
    bool isHighContrast_ = false;
    bool reducesMotion_ = false;
    ThemeColors colors_;
    QStringList families_;
    double bodySize_;  ///< points

    double unit = 4;  ///< of the grid that all spacing is a multiple of
    double cardRadius = 10;
    double controlRadius = 6;
};

}  // namespace pimloft
