#include "platform/toolkit/Host.h"

namespace vellumry::tk::mb {

bool offers(int style, int answer) {
  switch (style & 7) {
    case OKOnly:
      return answer == OK;
    case OKCancel:
      return answer == OK || answer == Cancel;
    case AbortRetryIgnore:
      return answer == Abort || answer == Retry || answer == Ignore;
    case YesNoCancel:
      return answer == Yes || answer == No || answer == Cancel;
    case YesNo:
      return answer == Yes || answer == No;
    case RetryCancel:
      return answer == Retry || answer == Cancel;
    default:
      return answer == OK;
  }
}

int closedAnswer(int style) {
  if (offers(style, Cancel)) return Cancel;
  if (offers(style, No)) return No;
  if (offers(style, Ignore)) return Ignore;
  return OK;
}

}  // namespace vellumry::tk::mb
