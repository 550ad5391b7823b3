#pragma once

#include <QString>

#include <exception>
#include <optional>
#include <utility>

// The classic error numbers that a file or printer operation can fail with.
enum class ErrorNumber {
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIoError = 57,
    DiskFull = 61,
    InputPastEnd = 62,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccess = 75,
    PathNotFound = 76,
    PrinterError = 482,
};

// The English description that belongs to the number, as message boxes show it.
QString errorDescription(ErrorNumber number);

// What a failed operation left behind where that is not what was there before.
enum class Aftermath {
    AsBefore,
    MainChanged, // the main file holds the new records, its twin still the old ones
    Unsure,      // records may be on file: appending failed, and cutting them off again failed too
};

// What every file and printer operation throws.
class FileError : public std::exception
{
public:
    explicit FileError(ErrorNumber number, QString label = {})
        : m_number(number)
        , m_label(std::move(label))
    {
    }

    ErrorNumber number() const { return m_number; }

    // The operation that failed, such as "Bets input"; empty until one was named.
    const QString &label() const { return m_label; }

    // Names the operation, unless one inside it was named already.
    void takeLabel(const QString &label)
    {
        if (m_label.isEmpty())
            m_label = label;
    }

    Aftermath aftermath() const { return m_aftermath; }
    void setAftermath(Aftermath aftermath) { m_aftermath = aftermath; }

    // A sentence for the operator beyond the description; usually there is none.
    QString remark() const;
    void setRemark(const QString &remark) { m_remark = remark; }

    QString description() const { return errorDescription(m_number); }
    const char *what() const noexcept override { return "file or printer operation failed"; }

private:
    ErrorNumber m_number;
    QString m_label;
    QString m_remark;
    Aftermath m_aftermath = Aftermath::AsBefore;
};

// Runs work that changes a file and its twin. Returns the error of the twin alone: the change
// counts then, and what follows from it, such as a list of refunds, comes before the error is
// shown. Every other error is thrown.
template<typename Work>
std::optional<FileError> errorOfTwin(Work &&work)
{
    try {
        work();
    } catch (const FileError &error) {
        if (error.aftermath() != Aftermath::MainChanged)
            throw;
        return error;
    }
    return {};
}

// How a screen words a failure; the error's label is the box's title in every style.
enum class ErrorStyle {
    DescriptionAndLabel,  // setup, menu and race card: "File not found Bets input"
    NumberAndDescription, // bettors, bet sheets: "53 File not found"
    DescriptionOnly,      // paying winners: "File not found"
};

// The text of the message box for a failure.
QString errorText(const FileError &error, ErrorStyle style);
