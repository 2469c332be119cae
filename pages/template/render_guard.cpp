#include "pages/template/render_guard.h"

#include "base/errors.h"

namespace pages {

void RenderGuard::damaged() const {
    throw base::DamagedFile(m_path);
}

}
