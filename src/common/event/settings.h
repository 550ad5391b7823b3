#pragma once

#include <QString>

#include <array>
#include <concepts>

inline constexpr int raceCount = 12;
inline constexpr int defaultBetLimit = 20000;
inline constexpr int defaultBettorLimit = 2000;

// The five lines that bet sheets end with unless the operator writes others.
QString defaultBetSheetMessage();

// A yes/no setting: held and stored as its word, asked and set as what it means.
class YesNo
{
public:
    YesNo(std::same_as<bool> auto yes)
        : m_word(yes ? QStringLiteral("yes") : QStringLiteral("no"))
    {
    }

    bool isYes() const { return m_word == QLatin1StringView("yes"); }
    const QString &word() const { return m_word; }

private:
    QString m_word;
};

// Whether the event directory is a master computer's shared folder, and whose.
enum class NetworkMode { Off, Master, Satellite };

// The settings that every screen reads.
struct Settings
{
    // Stored in Init.
    QString banner;
    QString eventDirectory; // backslash form, ends in one backslash
    int fontIndex = 0;      // of the report font sizes, 1 = 8 points; 0 while unset
    YesNo receiptPrinting = true;
    int roundingIndex = 0;                          // 1 = 0.01 to 5 = 1.00; 0 while unset
    int currentRace = 0;                            // 1 to 12; 0 while unset
    std::array<double, 4> reserved{0.25, 1, 5, 10}; // fields 7 to 10, kept as they were read
    int betLimit = defaultBetLimit;
    int bettorLimit = defaultBettorLimit;
    double computerMode = 0; // field 14, kept as it was read

    // For this run only.
    bool started = false;        // the questions of the start were asked and answered
    QString initDrive;           // "C:", "D:" or "E:"; empty until it is known
    QString lastEventDirectory;  // of the run before, until a directory is chosen or used
    QString receiptFontSize;     // points, empty means 8
    QString operationLabel;      // the file operation in progress, set by labelled()
    YesNo betsCleared = false;   // yes once Clear ALL Bet Files was done in this run
    bool printerAttached = true; // the start question's answer; switching receipts on makes it true
    YesNo mainComputer = false;
    YesNo satelliteComputer = false;
    QString masterComputer; // the network name of the master computer in network mode
    NetworkMode networkMode = NetworkMode::Off;
    // Printed at the foot of bet sheets.
    QString betSheetMessage = defaultBetSheetMessage();

    // The gate of receipts and refund slips.
    bool receiptsPrint() const { return receiptPrinting.isYes(); }

    // "Receipts will print" or "Receipts will not print".
    QString receiptsState() const;

    // The gate of slips that have none of their own.
    bool mayPrint() const { return printerAttached; }

    // Switching on also lifts the answer that no printer is attached.
    void setReceiptPrinting(bool on);

    // True once all bet files were cleared in this run: then horses and bettors may be cleared.
    bool betsWereCleared() const { return betsCleared.isYes(); }

    // The role among computers that exchange files on a thumb drive. Both roles can be set.
    bool isMainComputer() const { return mainComputer.isYes(); }
    bool isSatelliteComputer() const { return satelliteComputer.isYes(); }
    bool hasRole() const { return isMainComputer() || isSatelliteComputer(); }
    void setRole(bool main, bool satellite);
    void clearRole() { setRole(false, false); }

    // True while the event directory is a master computer's shared folder.
    bool isNetworked() const { return networkMode != NetworkMode::Off; }

    // " Race3": with its leading blank, the suffix of every file name of the race.
    QString raceName() const;

    // Banner and race name, as every screen shows them.
    QString bannerAndRace() const { return banner + raceName(); }
};

// " Race1" to " Race12".
QString raceName(int race);

// "0.01", "0.10", "0.25", "0.50" or "1.00" for the rounding index 1 to 5.
QString roundingText(int roundingIndex);

// The report font size in points; an index outside 1 to 7 gives 8.
int fontPoints(int fontIndex);
