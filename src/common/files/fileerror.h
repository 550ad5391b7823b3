#pragma once

#include <QString>

#include <exception>
#include <utility>

// The classic error numbers that a file or printer operation can fail with.
enum class ErrorNumber {
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

    QString description() const { return errorDescription(m_number); }
    const char *what() const noexcept override { return "file or printer operation failed"; }

private:
    ErrorNumber m_number;
    QString m_label;
};

// How a screen words a failure; the error's label is the box's title in every style.
enum class ErrorStyle {
    DescriptionAndLabel,  // setup, menu and race card: "File not found Bets input"
    NumberAndDescription, // bettors, bet sheets: "53 File not found"
    DescriptionOnly,      // paying winners: "File not found"
};

// The text of the message box for a failure.
QString errorText(const FileError &error, ErrorStyle style);
