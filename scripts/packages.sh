# The Debian packages that this repository needs, and the only list of them: each variable holds names with blanks
# between. Sourced by scripts/setup.sh and by cmake/arm-sysroot.sh, so it keeps to what every shell can do.
# shellcheck shell=sh disable=SC2034

packages_of_libraries="libxmlrpc-core-c3-dev libmicrohttpd-dev libcli11-dev libexpat1-dev libgnutls28-dev libcrypt-dev libbsd-dev zlib1g-dev nlohmann-json3-dev libtomlplusplus-dev libcurl4-openssl-dev"

packages_to_build="g++ cmake ninja-build pkg-config python3 $packages_of_libraries libmimalloc-dev libedit-dev libjs-dygraphs"
packages_to_test="libgtest-dev libbenchmark-dev valgrind openssl clang libclang-rt-14-dev zsh fish python3-pytest python3-pytest-xdist mypy python3-prometheus-client prometheus chromium chromium-driver python3-selenium curl mkdocs mkdocs-material groff-base librpc-xml-perl libxmlrpc-lite-perl libfrontier-rpc-perl ruby-xmlrpc php-cli php-xmlrpc xmlrpc-api-utils emacs-nox elpa-xml-rpc"
packages_to_package="git debhelper dh-python pybuild-plugin-pyproject python3-all python3-setuptools mkdocs mkdocs-material groff-base lintian mmdebstrap"
packages_for_style="git clang-format-14 clang-tidy-14"

# For the target: what the machine has to have, and what is linked with there.
packages_for_arm="g++ g++-arm-linux-gnueabihf qemu-user cmake ninja-build pkg-config python3 openssl"
packages_of_sysroot="$packages_of_libraries libgtest-dev"
