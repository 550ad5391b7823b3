#include "common/event/display.h"

#include "common/event/init.h"
#include "common/event/labelled.h"
#include "common/files/recordfile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString displayFile(const Session &session)
{
    return session.paths.toHost(defaultEventDirectory(session.settings) + u"Display"_s);
}

} // namespace

double readLetters(Session &session)
{
    const auto bytes =
        labelled(session, u"Display input"_s, [&] { return readIfThere(displayFile(session)); });
    bool isNumber = false;
    const double letters = bytes.value_or(QByteArray()).trimmed().toDouble(&isNumber);
    return isNumber && letters == letters ? std::clamp(letters, 0.5, 3.0) : 1; // NaN is no size
}

void saveLetters(Session &session, double letters)
{
    labelled(session, u"Display output"_s, [&] {
        replaceRecordFile(displayFile(session), QByteArray::number(letters, 'f', 2) + recordEnd);
    });
}
