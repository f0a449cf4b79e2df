# Run while a package is made, with host (the crash server of the built-in addresses) and allowed: reports of players
# must not go to the players' own machines. The environment allows it for one call, for tests of the package itself.
set(allowed_now $ENV{CRASHVANE_ALLOW_LOCAL_HOST})
if(host MATCHES "^(localhost|127\\.[0-9.]+|0\\.0\\.0\\.0|\\[::1\\])(:|$)" AND NOT allowed AND NOT allowed_now)
  string(CONCAT refusal
    "Not packaged: this program sends its reports to ${host}, which is the player's own machine. "
    "Configure with -DCRASHVANE_SERVER_HOST=<your crash server>, "
    "or with -DCRASHVANE_ALLOW_LOCAL_HOST=ON if that is meant.")
  message(FATAL_ERROR "${refusal}")
endif()
