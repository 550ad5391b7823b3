#include "common/print/slip.h"

namespace {
constexpr int zoneWidth = 14;
}

void Slip::addPageBreak()
{
    lines.append(SlipLine{});
}

Slip headed(const Slip &slip, const QString &line)
{
    Slip result = slip;
    result.lines.prepend(SlipLine{{1, line}});
    ++result.headingLines;
    for (int &start : result.blockStarts)
        ++start;
    return result;
}

int nextPrintZone(int column)
{
    return (column / zoneWidth + 1) * zoneWidth + 1;
}

SlipLine zonedLine(const QString &first, const QString &second)
{
    return {{1, first}, {nextPrintZone(int(first.size())), second}};
}

QString lineText(const SlipLine &line)
{
    QString text;
    for (const SlipText &part : line) {
        if (part.column > 0) {
            if (!text.isEmpty() && text.size() >= part.column)
                text += u' ';
            text = text.leftJustified(part.column - 1);
        }
        text += part.text;
    }
    return text;
}

QStringList slipText(const Slip &slip)
{
    QStringList texts;
    for (const SlipLine &line : slip.lines) {
        if (!Slip::isPageBreak(line))
            texts.append(lineText(line));
    }
    return texts;
}
