// Standard input, output and error as the program finds them.
#pragma once

namespace tarvik {

/// Makes them harmless, whatever state they are in: one that is closed leads nowhere from here on,
/// and a message to somebody who no longer listens is lost without ending the program.
void secure_standard_streams();

} // namespace tarvik
