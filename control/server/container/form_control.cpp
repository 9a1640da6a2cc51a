#include "control/server/container/form_control.h"

namespace mavrin2::server {

STDMETHODIMP PropertyPages::GetPages(CAUUID* pages) {
    if (!pages) return E_POINTER;
    *pages = {};
    return S_OK;
}

}  // namespace mavrin2::server
