#include "ui/colors.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace {

constexpr char toneProperty[] = "tone";
constexpr double textRatio = 7;
constexpr double signRatio = 3;
constexpr double frameRatio = 4; // the style draws some of them a little lighter

double luminance(const QColor &color)
{
    const auto linear = [](float shown) {
        const auto part = double(shown);
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
           + 0.0722 * linear(color.blueF());
}

QColor mixed(const QColor &one, const QColor &other, double share)
{
    const auto part = [&](int from, int to) { return qRound(from + (to - from) * share); };
    return {part(one.red(), other.red()), part(one.green(), other.green()),
            part(one.blue(), other.blue())};
}

// The colour, so much darker or lighter that it stands out from the ground.
QColor readable(const QColor &color, const QColor &ground, double ratio)
{
    const QColor end =
        contrast(Qt::white, ground) > contrast(Qt::black, ground) ? Qt::white : Qt::black;
    QColor found = color;
    for (int step = 1; contrast(found, ground) < ratio && step <= 20; ++step)
        found = mixed(color, end, step / 20.0);
    return found;
}

// Words of the hue on any ground of the palette.
QColor ink(const QColor &hue, const QPalette &palette)
{
    const QColor onWindow = readable(hue, palette.color(QPalette::Window), textRatio);
    return readable(onWindow, palette.color(QPalette::Base), textRatio);
}

ToneColors tinted(const QColor &hue, const QPalette &palette)
{
    const QColor fill = tintOf(hue, palette);
    const QColor edge = readable(hue, fill, signRatio);
    return {fill, palette.color(QPalette::Text),
            readable(edge, palette.color(QPalette::Base), signRatio)};
}

// The style makes the upper edge of dark buttons nearly so much lighter.
constexpr int buttonLightness = 165;

ToneColors nextStep()
{
    QColor fill(0x1f, 0x6b, 0x3f);
    while (contrast(fill.lighter(buttonLightness), Qt::white) < textRatio)
        fill = fill.darker(105);
    return {fill, Qt::white, Qt::white};
}

ToneColors words(const QColor &hue, const QPalette &palette)
{
    const QColor text = ink(hue, palette);
    return {palette.color(QPalette::Base), text, text};
}

ToneColors danger(const QPalette &palette)
{
    const QColor hue(0xb0, 0x18, 0x10);
    const QColor fill = mixed(palette.color(QPalette::Button), hue, 0.12);
    const QColor lower = readable(hue, fill, textRatio);
    const QColor text = readable(lower, fill.lighter(buttonLightness), textRatio);
    return {fill, text, text};
}

ToneColors derivedTone(Tone tone, const QPalette &palette)
{
    const QColor text = palette.color(QPalette::Text);
    switch (tone) {
    case Tone::None:
        return {palette.color(QPalette::Base), text, frameColor(palette)};
    case Tone::Banner:
        return {QColor(0x1f, 0x4d, 0x34), Qt::white, Qt::white};
    case Tone::NextStep:
        return nextStep();
    case Tone::Danger:
        return danger(palette);
    case Tone::Notice:
        return words(QColor(0x7a, 0x3b, 0x00), palette);
    case Tone::Wrong:
        return words(QColor(0xa1, 0x16, 0x0e), palette);
    case Tone::Aside:
        return {palette.color(QPalette::AlternateBase), text, frameColor(palette)};
    case Tone::Key:
        return {palette.color(QPalette::Button), palette.color(QPalette::ButtonText),
                frameColor(palette)};
    case Tone::Placed:
        return tinted(QColor(0x3f, 0xa8, 0x62), palette);
    case Tone::Dropped:
        return tinted(QColor(0xf0, 0xbe, 0x10), palette);
    case Tone::Unpaid:
        return tinted(QColor(0xff, 0x8c, 0x1a), palette);
    case Tone::Stopping:
        return tinted(QColor(0xe8, 0x3a, 0x28), palette);
    case Tone::Post: // the same on every ground, as the chosen ones
        return {QColor(0xff, 0xff, 0x00), Qt::black, Qt::black};
    case Tone::ChosenPost:
        return {QColor(0xff, 0x00, 0xff), Qt::black, Qt::black};
    }
    return {};
}

void applyTone(QWidget *widget, Tone tone)
{
    QPalette palette;
    if (tone != Tone::None) {
        const ToneColors colors = toneColors(tone);
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            for (const auto role : {QPalette::Base, QPalette::Button})
                palette.setColor(group, role, colors.fill);
            for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
                palette.setColor(group, role, colors.text);
        }
    }
    widget->setPalette(palette);
}

QPalette lightPalette()
{
    QPalette palette(QColor(0xdd, 0xe6, 0xdf), QColor(0xee, 0xf2, 0xee));
    const QColor text(0x10, 0x18, 0x12);
    palette.setColor(QPalette::WindowText, QColor(0x1a, 0x24, 0x1d));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf4, 0xf7, 0xf4));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(0x48, 0x50, 0x4a));
    palette.setColor(QPalette::Highlight, QColor(0x1b, 0x60, 0x38));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfb, 0xe0));
    palette.setColor(QPalette::ToolTipText, QColor(0x20, 0x20, 0x10));
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, QColor(0x6c, 0x74, 0x6e));
    return palette;
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x34, 0x3d, 0x37), QColor(0x22, 0x28, 0x24));
    const QColor text(0xf2, 0xf6, 0xf3);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, QColor(0x16, 0x1b, 0x18));
    palette.setColor(QPalette::AlternateBase, QColor(0x1e, 0x24, 0x20));
    palette.setColor(QPalette::PlaceholderText, QColor(0xb8, 0xc2, 0xbb));
    palette.setColor(QPalette::Highlight, QColor(0x8f, 0xd6, 0xa8));
    palette.setColor(QPalette::HighlightedText, QColor(0x0a, 0x14, 0x0e));
    palette.setColor(QPalette::ToolTipBase, QColor(0x34, 0x3d, 0x37));
    palette.setColor(QPalette::ToolTipText, text);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, QColor(0x98, 0xa2, 0x9b));
    return palette;
}

// Nearly black on white, or white on black, on buttons too.
bool asksForContrast(const QPalette &system)
{
    constexpr double nearlyAll = 20;
    return contrast(system.color(QPalette::WindowText), system.color(QPalette::Window)) > nearlyAll
           && contrast(system.color(QPalette::ButtonText), system.color(QPalette::Button))
                  > nearlyAll;
}

void applyTones()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        if (const QVariant tone = widget->property(toneProperty); tone.isValid())
            applyTone(widget, Tone(tone.toInt()));
    }
}

class PaletteFollower : public QObject
{
public:
    using QObject::QObject;

    // Widgets have their part of the new palette only after the application was told.
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::ApplicationPaletteChange && object == parent())
            QMetaObject::invokeMethod(this, &applyTones, Qt::QueuedConnection);
        return false;
    }
};

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QPalette housePalette(const QPalette &system)
{
    if (asksForContrast(system))
        return system;
    const bool isDark =
        luminance(system.color(QPalette::Window)) < luminance(system.color(QPalette::WindowText));
    return isDark ? darkPalette() : lightPalette();
}

// Every frame that is painted asks for it, so what was found stays known: one for each tone.
QColor frameColor(const QPalette &palette)
{
    static std::map<std::array<QRgb, 3>, QColor> known;
    QColor color(0x80, 0x88, 0x82);
    std::array<QRgb, 3> grounds{};
    std::ranges::transform(std::array{QPalette::Button, QPalette::Window, QPalette::Base},
                           grounds.begin(),
                           [&](QPalette::ColorRole role) { return palette.color(role).rgba(); });
    const auto [found, isNew] = known.try_emplace(grounds);
    for (auto ground = grounds.begin(); isNew && ground != grounds.end(); ++ground)
        found->second = color = readable(color, QColor(*ground), frameRatio);
    return found->second;
}

QColor tintOf(const QColor &hue, const QPalette &palette)
{
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    double share = 0.4;
    while (share > 0 && contrast(text, mixed(base, hue, share)) < textRatio)
        share -= 0.05;
    return mixed(base, hue, std::max(share, 0.0));
}

ToneColors toneColors(Tone tone, const QPalette &palette)
{
    // Those of the palette in use stay known.
    static qint64 usedPalette = 0;
    static std::map<Tone, ToneColors> known;
    if (std::exchange(usedPalette, palette.cacheKey()) != palette.cacheKey())
        known.clear();
    const auto [found, isNew] = known.try_emplace(tone);
    if (isNew)
        found->second = derivedTone(tone, palette);
    return found->second;
}

const BoardColors &boardColors()
{
    static const BoardColors colors{
        .ground = QColor(0x0b, 0x12, 0x0e),
        .otherGround = QColor(0x16, 0x21, 0x1b),
        .head = QColor(0x1f, 0x4d, 0x34),
        .text = Qt::white,
        .aside = QColor(0xc4, 0xd2, 0xc9),
        .odds = QColor(0xff, 0xe0, 0x66),
        .rising = QColor(0xff, 0xb8, 0x80),
        .falling = QColor(0x8c, 0xe8, 0xae),
        .notice = QColor(0xff, 0xd0, 0x40),
        .bars = {QColor(0x3f, 0xc0, 0x74), QColor(0x5a, 0xa8, 0xf0), QColor(0xe8, 0x8c, 0x3c)},
    };
    return colors;
}

void setTone(QWidget *widget, Tone tone)
{
    widget->setProperty(toneProperty, int(tone));
    applyTone(widget, tone);
}

void followPalette(QApplication &application)
{
    application.installEventFilter(new PaletteFollower(&application));
}
