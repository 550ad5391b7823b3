#include "common/event/init.h"

#include "common/event/labelled.h"
#include "common/files/recordfile.h"

#include <QLocale>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// More bets or bettors than any table could hold: a limit above counts as damage.
constexpr int highestLimit = 1'000'000;

// The number with all the digits it needs and never an exponent.
QByteArray number(double value)
{
    return QByteArray::number(value, 'f', QLocale::FloatingPointShortest);
}

// The values of one Init line that could be used; the others stay empty.
class InitFields
{
public:
    explicit InitFields(const QByteArray &bytes)
    {
        std::string_view rest = view(bytes);
        std::string_view line;
        while (nextRecordLine(rest, line) && isBlankLine(line)) {
        }
        if (!splitRecord(line, m_fields))
            m_whole = false;
        if (m_fields.size() < 14)
            m_whole = false;
    }

    bool isWhole() const { return m_whole; }

    QString text(std::size_t field) const
    {
        return field <= m_fields.size() ? fieldText(m_fields[field - 1]) : QString();
    }

    // A text, or nothing where a damaged line holds something else.
    QString soundText(std::size_t field) const
    {
        if (field > m_fields.size() || (!m_whole && !m_fields[field - 1].quoted))
            return {};
        return storableText(text(field));
    }

    // A whole number from lowest to highest, else \a otherwise.
    int integer(std::size_t field, int lowest, int highest, int otherwise)
    {
        if (field <= m_fields.size()) {
            if (const auto value = fieldInteger(m_fields[field - 1], lowest, highest))
                return *value;
        }
        return otherwise;
    }

    double number(std::size_t field, double otherwise)
    {
        if (field <= m_fields.size()) {
            if (const auto value = fieldNumber(m_fields[field - 1]))
                return *value;
        }
        m_whole = false;
        return otherwise;
    }

    // True when the field holds any number at all.
    void demandNumber(std::size_t field) { number(field, 0); }

private:
    std::vector<RecordField> m_fields;
    bool m_whole = true;
};

} // namespace

QString initFile(const Session &session)
{
    return session.paths.toHost(session.settings.initDrive + u"\\Trelawn\\Init"_s);
}

QString defaultEventDirectory(const Settings &settings)
{
    return settings.initDrive + u"\\Trelawn\\"_s;
}

void makeInitFolder(Session &session)
{
    labelled(session, u"Init directory-Setup"_s,
             [&] { makeFolder(session.paths.toHost(defaultEventDirectory(session.settings))); });
}

QString bannerOf(const Session &session, const QString &text)
{
    const QString banner = storableText(text);
    const bool saysSo = banner.section(u' ', 0, 0) == practiceWord;
    return session.isPractice() && !saysSo ? practiceWord + u' ' + banner : banner;
}

bool loadInit(Session &session)
{
    Settings &settings = session.settings;
    const QByteArray bytes =
        labelled(session, u"Init open-Setup"_s, [&] { return readRecordFile(initFile(session)); });
    constexpr int largest = std::numeric_limits<int>::max();

    InitFields fields(bytes);
    for (std::size_t field : {3U, 5U, 6U, 12U, 13U})
        fields.demandNumber(field);
    settings.banner = fields.soundText(1);
    if (settings.banner.isEmpty() && !fields.isWhole())
        settings.banner = u"Kentucky Derby"_s;
    settings.banner = bannerOf(session, settings.banner);
    settings.eventDirectory = fields.soundText(2);
    while (settings.eventDirectory.endsWith(u'\\'))
        settings.eventDirectory.chop(1);
    settings.eventDirectory = settings.eventDirectory.isEmpty() ? defaultEventDirectory(settings)
                                                                : settings.eventDirectory + u'\\';
    settings.fontIndex = fields.integer(3, 1, largest, 0);
    settings.receiptPrinting = fields.text(4) != "no"_L1;
    settings.roundingIndex = fields.integer(5, 1, 5, 0);
    settings.currentRace = fields.integer(6, 1, raceCount, 0);
    const Settings defaults;
    for (std::size_t i = 0; i < settings.reserved.size(); ++i)
        settings.reserved[i] = fields.number(7 + i, defaults.reserved[i]);
    settings.betLimit = fields.integer(12, 1, highestLimit, defaultBetLimit);
    settings.bettorLimit = fields.integer(13, 1, highestLimit, defaultBettorLimit);
    settings.computerMode = fields.number(14, 0);
    return fields.isWhole();
}

bool rereadInit(Session &session)
{
    Settings &settings = session.settings;
    const Settings before = settings;
    if (!loadInit(session)) {
        settings = before;
        return false;
    }
    settings.eventDirectory = before.eventDirectory;
    settings.currentRace = before.currentRace;
    if (settings.fontIndex == 0)
        settings.fontIndex = before.fontIndex;
    if (settings.roundingIndex == 0)
        settings.roundingIndex = before.roundingIndex;
    return true;
}

void setFirstInit(Session &session)
{
    Settings &settings = session.settings;
    settings.banner = bannerOf(session, u"Kentucky Derby"_s);
    settings.eventDirectory = defaultEventDirectory(settings);
    settings.betLimit = defaultBetLimit;
    settings.bettorLimit = defaultBettorLimit;
    settings.computerMode = 0;
    settings.currentRace = 1;
}

void saveInit(Session &session, InitWriter writer, const QString &openLabel,
              const QString &outputLabel)
{
    const Settings &settings = session.settings;
    const QString path = labelled(session, openLabel, [&] { return initFile(session); });
    const QString directory =
        settings.isNetworked() ? defaultEventDirectory(settings) : settings.eventDirectory;
    QByteArray record = quotedField(settings.banner) + ',' + quotedField(directory) + ','
                        + QByteArray::number(settings.fontIndex) + ','
                        + quotedField(settings.receiptPrinting.word()) + ','
                        + QByteArray::number(settings.roundingIndex) + ','
                        + QByteArray::number(settings.currentRace) + ',';
    switch (writer) {
    case InitWriter::Setup:
        for (const double value : settings.reserved)
            record += number(value) + ',';
        record += "5,";
        break;
    case InitWriter::Directory:
        record += "1,2,3,4,5,";
        break;
    case InitWriter::Other:
        record += "0.25,1,5,10,5,";
        break;
    }
    record += QByteArray::number(settings.betLimit) + ',' + QByteArray::number(settings.bettorLimit)
              + ',' + number(settings.computerMode) + recordEnd;
    labelled(session, outputLabel, [&] { replaceRecordFile(path, record); });
}

void saveInit(Session &session, InitWriter writer)
{
    saveInit(session, writer, u"\\Trelawn\\Init"_s, u"\\Trelawn\\Init"_s);
}

void switchReceiptPrinting(Session &session)
{
    session.settings.setReceiptPrinting(!session.settings.receiptsPrint());
    saveInit(session);
}
