#include "common/files/fileerror.h"

using namespace Qt::StringLiterals;

QString errorDescription(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::OutOfMemory:
        return u"Out of memory"_s;
    case ErrorNumber::SubscriptOutOfRange:
        return u"Subscript out of range"_s;
    case ErrorNumber::BadFileName:
        return u"Bad file name or number"_s;
    case ErrorNumber::FileNotFound:
        return u"File not found"_s;
    case ErrorNumber::DeviceIoError:
        return u"Device I/O error"_s;
    case ErrorNumber::DiskFull:
        return u"Disk full"_s;
    case ErrorNumber::InputPastEnd:
        return u"Input past end of file"_s;
    case ErrorNumber::DeviceUnavailable:
        return u"Device unavailable"_s;
    case ErrorNumber::PermissionDenied:
        return u"Permission denied"_s;
    case ErrorNumber::DiskNotReady:
        return u"Disk not ready"_s;
    case ErrorNumber::PathFileAccess:
        return u"Path/File access error"_s;
    case ErrorNumber::PathNotFound:
        return u"Path not found"_s;
    case ErrorNumber::PrinterError:
        return u"Printer error"_s;
    }
    return u"Device I/O error"_s;
}

QString FileError::remark() const
{
    if (!m_remark.isEmpty() || m_aftermath == Aftermath::AsBefore)
        return m_remark;
    return m_aftermath == Aftermath::Unsure
               ? u"The records may be on file: placing them again looks for them first."_s
               : u"The file was changed, its backup was not."_s;
}

namespace {

QString plainText(const FileError &error, ErrorStyle style)
{
    switch (style) {
    case ErrorStyle::DescriptionAndLabel:
        return error.description() + u' ' + error.label();
    case ErrorStyle::NumberAndDescription:
        return QString::number(int(error.number())) + u' ' + error.description();
    case ErrorStyle::DescriptionOnly:
        break;
    }
    return error.description();
}

} // namespace

QString errorText(const FileError &error, ErrorStyle style)
{
    const QString text = plainText(error, style);
    return error.remark().isEmpty() ? text : text + u'\n' + error.remark();
}
