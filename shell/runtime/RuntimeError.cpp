#include "shell/runtime/RuntimeError.h"

namespace rt {

RuntimeError::RuntimeError(int number, QString description)
    : number_(number), description_(description.isEmpty() ? standardDescription(number) : std::move(description)) {
  what_ = QStringLiteral("Runtime error %1: %2").arg(number_).arg(description_).toStdString();
}

QString standardDescription(int number) {
  switch (number) {
    case kInvalidProcedureCall: return QStringLiteral("Invalid procedure call or argument");
    case kOverflow: return QStringLiteral("Overflow");
    case kOutOfMemory: return QStringLiteral("Out of memory");
    case kSubscriptOutOfRange: return QStringLiteral("Subscript out of range");
    case kDivisionByZero: return QStringLiteral("Division by zero");
    case kTypeMismatch: return QStringLiteral("Type mismatch");
    case kBadFileName: return QStringLiteral("Bad file name or number");
    case kFileNotFound: return QStringLiteral("File not found");
    case kBadFileMode: return QStringLiteral("Bad file mode");
    case kDeviceIOError: return QStringLiteral("Device I/O error");
    case kInputPastEndOfFile: return QStringLiteral("Input past end of file");
    case kPathNotFound: return QStringLiteral("Path not found");
    case kInvalidUseOfNull: return QStringLiteral("Invalid use of Null");
    case kDialogCancelled: return QStringLiteral("Cancel was selected");
    default: return QStringLiteral("Application-defined or object-defined error");
  }
}

void raise(int number) { throw RuntimeError(number); }

}  // namespace rt
