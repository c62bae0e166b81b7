"""Builds the extension, with the library within it or with one that is installed.

    UOM_SYSTEM=1   link the libuom that pkg-config knows (PKG_CONFIG_PATH); its data files are not packed either
    UOM_RPATH=0    with it: keep no path of that library, as it lies where the system looks
    UOM_WERROR=1   warnings are errors
    UOM_JOBS=2     compilers at a time

The library is built by its own CMake files, as the static one. They lie two folders up in the repository, and beside this
file, in libuom/, in a source distribution.
"""

from __future__ import annotations

import os
import re
import shlex
import shutil
import subprocess
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext
from setuptools.command.build_py import build_py
from setuptools.command.sdist import sdist

here = Path(__file__).resolve().parent
packed = here / "libuom"
root = packed if packed.is_dir() else here.parent.parent
system = os.environ.get("UOM_SYSTEM", "") not in ("", "0")
data_files = ["uomdata.txt", "aliases.txt"]

# What the static library is built from.
library_files = ["CMakeLists.txt", "LICENSE", "tools/CMakeLists.txt", "bench/CMakeLists.txt"]
library_folders = ["cmake", "include", "data"]


def source_folders() -> list[str]:
    """Those that CMakeLists.txt says."""
    match = re.search(r"set\(folders ([^)]*)\)", (root / "CMakeLists.txt").read_text())
    assert match, "CMakeLists.txt names the folders of the library"
    return match[1].split()


def version() -> str:
    match = re.search(r'#define UOM_VERSION "([^"]+)"', (root / "include/uom/uom.h").read_text())
    assert match, "uom.h has the version"
    return match[1]


def pkg_config(*options: str) -> list[str]:
    return shlex.split(subprocess.run(["pkg-config", *options, "uom"], check=True, capture_output=True, text=True).stdout)


class BuildExtension(build_ext):
    def build_extensions(self) -> None:
        for extension in self.extensions:
            if system:
                # The installed library is found where it is, wherever that is.
                keep = os.environ.get("UOM_RPATH", "1") != "0"
                paths = [f"-Wl,-rpath,{path}" for path in pkg_config("--variable=libdir") if keep]
                extension.extra_compile_args += pkg_config("--cflags")
                extension.extra_link_args += pkg_config("--libs") + paths
            else:
                extension.extra_compile_args += ["-DUOM_STATIC", f"-I{root / 'include'}"]
                extension.extra_objects.append(self.static_library())
        super().build_extensions()

    def static_library(self) -> str:
        build = Path(self.build_temp).resolve() / "libuom"
        off = ["-DBUILD_TESTING=OFF", "-DUOM_INSTALL=OFF", "-DUOM_TOOL=OFF", "-DUOM_BENCH=OFF", "-DUOM_WARNINGS_AS_ERRORS=OFF"]
        self.run_command_line("cmake", "-S", root, "-B", build, "-DCMAKE_BUILD_TYPE=Release", *off)
        jobs = os.environ.get("UOM_JOBS") or str(os.cpu_count() or 2)
        self.run_command_line("cmake", "--build", build, "--target", "uom_static", "-j", jobs)
        return str(build / "lib" / "libuom.a")

    def run_command_line(self, *words: str | Path) -> None:
        subprocess.run([str(word) for word in words], check=True)


class BuildPackage(build_py):
    def run(self) -> None:
        super().run()
        for name in [] if system else data_files:
            target = Path(self.build_lib) / "uom" / name
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(root / "data" / name, target)


class SourceDistribution(sdist):
    def make_release_tree(self, base_dir: str, files: list[str]) -> None:
        super().make_release_tree(base_dir, files)
        target = Path(base_dir) / "libuom"
        for folder in [*library_folders, *source_folders()]:
            shutil.copytree(root / folder, target / folder, dirs_exist_ok=True)
        for name in library_files:
            (target / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(root / name, target / name)
        # Links would point out of the distribution.
        shutil.copyfile(root / "LICENSE", Path(base_dir) / "LICENSE")


compile_args = ["-std=c++20", "-O2", "-fvisibility=hidden", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow"]
if os.environ.get("UOM_WERROR", "") not in ("", "0"):
    compile_args.append("-Werror")

# The C++ library goes into the extension, too: a machine need have none.
link_args = ["-static-libstdc++", "-static-libgcc", "-Wl,--exclude-libs,ALL", "-Wl,--as-needed", "-Wl,-z,now", "-s"]

setup(
    version=version(),
    ext_modules=[
        Extension(
            "uom._core",
            sorted(str(path.relative_to(here)) for path in here.glob("src/*.cpp")),
            depends=sorted(str(path.relative_to(here)) for path in here.glob("src/*.h")),
            language="c++",
            extra_compile_args=compile_args,
            extra_link_args=link_args,
        )
    ],
    package_data={"uom": ["py.typed", "*.pyi"]},
    cmdclass={"build_ext": BuildExtension, "build_py": BuildPackage, "sdist": SourceDistribution},
)
