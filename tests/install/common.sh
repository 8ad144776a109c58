# Sourced by the install tests: a temporary folder removed on exit (after any
# cleanup of the test's own, in cleanup_more), fail, and an install into a prefix.
# The install is the "skitterweb" component, so it writes its own manifest and
# leaves build/install_manifest.txt to a real install.
work=$(mktemp -d)
cleanup_more() { :; }
trap 'cleanup_more; rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }
install_into() {  # build-dir prefix
  cmake --install "$1" --prefix "$2" --component skitterweb >"$work/install.log" 2>&1 ||
    { cat "$work/install.log" >&2; fail "cmake --install $1 --prefix $2 failed"; }
}
