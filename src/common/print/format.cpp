#include "common/print/format.h"

#include "common/files/recordlines.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

// The value's decimal text of \a digits significant digits, rounded at the second decimal, as
// whole cents without sign.
QByteArray cents(double value, int digits)
{
    // Scientific text d.ddd...e+xx holds exactly the digits that count.
    const QByteArray text = QByteArray::number(std::abs(value), 'e', digits - 1);
    const qsizetype e = text.indexOf('e');
    QByteArray mantissa = text.left(e);
    mantissa.replace(".", "");
    const int point = text.mid(e + 1).toInt() + 1; // digits before the decimal point
    const int kept = point + 2;
    if (kept < 0)
        return "000";
    if (kept > mantissa.size())
        mantissa += QByteArray(kept - mantissa.size(), '0');
    const bool up = kept < mantissa.size() && mantissa[kept] >= '5';
    QByteArray whole = mantissa.left(kept);
    if (up) {
        qsizetype i = whole.size() - 1;
        while (i >= 0 && whole[i] == '9')
            whole[i--] = '0';
        if (i >= 0)
            whole[i] = char(whole[i] + 1);
        else
            whole.prepend('1');
    }
    return whole.rightJustified(3, '0');
}

QString money(double value, int digits, const char *patternText)
{
    if (!std::isfinite(value))
        value = 0;
    const auto pattern = QLatin1StringView(patternText);
    const bool currency = pattern == "Currency"_L1;
    const QByteArray amount = cents(value, digits);
    const bool negative = value < 0 && amount.count('0') != amount.size();

    QString whole = QString::fromLatin1(amount.chopped(2));
    while (whole.startsWith(u'0'))
        whole.remove(0, 1);
    const auto wholePattern =
        std::string_view(patternText)
            .substr(0, pattern.indexOf(u'.') < 0 ? 0 : size_t(pattern.indexOf(u'.')));
    const qsizetype atLeast = currency ? 1 : std::ranges::count(wholePattern, '0');
    whole = whole.rightJustified(atLeast, u'0');
    if (currency || pattern.contains(u',')) {
        for (qsizetype i = whole.size() - 3; i > 0; i -= 3)
            whole.insert(i, u',');
    }
    const QString text = u'$' + whole + u'.' + QString::fromLatin1(amount.right(2));
    if (!negative)
        return text;
    return currency ? QString(u'(' + text + u')') : QString(u'-' + text);
}

} // namespace

QString formatMoney(float value, const char *pattern)
{
    return money(double(value), 7, pattern);
}

QString formatMoney(double value, const char *pattern)
{
    return money(value, 15, pattern);
}

QString counted(std::size_t number, const QString &noun)
{
    return QString::number(number) + u' ' + noun + (number == 1 ? u""_s : u"s"_s);
}

QString leftColumn(const QString &text, int width)
{
    return text.leftJustified(width);
}

QString rightColumn(const QString &text, int width)
{
    return text.rightJustified(width);
}

double numericValue(const QString &text)
{
    static const QRegularExpression number(uR"(^\s*([+-]?(\d+\.?\d*|\.\d+)))"_s);
    return number.match(text).captured(1).toDouble();
}

bool isNumeric(const QString &text)
{
    static const QRegularExpression number(
        uR"(^\s*([+-]?\$?|\$[+-])(\d{1,3}(,\d{3})+|\d+)?(\.\d*)?\s*$)"_s);
    return number.match(text).hasMatch() && text.contains(QRegularExpression(u"[0-9]"_s));
}

double numericAmount(const QString &text)
{
    return QString(text).remove(u'$').remove(u',').trimmed().toDouble();
}

QString plainNumber(float value)
{
    return QString::fromStdString(recordNumber(value));
}
