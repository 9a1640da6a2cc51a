#pragma once

namespace mavrin2::binding {

// A build tree and an installation have a component registry beside the program. This process uses
// it unless MAVRIN2_REGISTRY names another one. To be called before the first object is created.
void FindComponents();

}  // namespace mavrin2::binding
