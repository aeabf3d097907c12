# The Debian package of everything that is installed: the libraries and their headers and CMake
# package, the bench host with its desktop entry and icon, the command-line tool, the simulated
# supply and the catalogues.
# scripts/package.sh builds it.
set(CPACK_PACKAGE_NAME tarn-bench-programmer)
set(CPACK_PACKAGE_VENDOR "Tarn")
set(CPACK_PACKAGE_CONTACT "Tarn bench tools <bench@tarn.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Programs, uploads and verifies List and Delayer sequences of bench supplies")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://tarn.invalid/bench")
# The run-time dependencies are what dpkg-shlibdeps finds the binaries need; the package's own
# libraries are resolved inside it. Building against the headers takes the Qt and plot headers.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Relative to the staging directory, where dpkg-shlibdeps runs: the package's own libraries.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS usr/${CMAKE_INSTALL_LIBDIR})
# The Chinese catalogue needs a font with its characters.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-wqy-microhei | fonts-noto-cjk")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qtbase5-dev, libqcustomplot-dev, qttranslations5-l10n")
include(CPack)
