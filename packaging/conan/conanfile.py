import os
import re

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rmdir

required_conan_version = ">=2.0"


class UomConan(ConanFile):
    """A recipe over the tree that it lies in: conan create packaging/conan"""

    name = "uom"
    description = "Units of measure for process simulation"
    license = "Apache-2.0"
    topics = ("units", "conversion", "process-simulation")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False]}
    default_options = {"shared": False, "fPIC": True}
    implements = ["auto_shared_fpic"]

    @property
    def _tree(self):
        return os.path.join(self.recipe_folder, os.pardir, os.pardir)

    def set_version(self):
        header = load(self, os.path.join(self._tree, "include", "uom", "uom.h"))
        self.version = re.search(r'#define UOM_VERSION "([^"]+)"', header)[1]

    def export_sources(self):
        for pattern in self._files():
            copy(self, pattern, src=self._tree, dst=self.export_sources_folder)

    def _files(self):
        folders = re.search(r"set\(folders ([^)]*)\)", load(self, os.path.join(self._tree, "CMakeLists.txt")))[1].split()
        parts = folders + ["cmake", "include", "data", "docs", "examples", "bindings/dotnet", "packaging", "tools"]
        pages = ["README.md", "CHANGELOG.md", "SECURITY.md", "LICENSE"]
        return [f"{part}/*" for part in parts] + ["CMakeLists.txt", "bench/CMakeLists.txt"] + pages

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["UOM_LIBRARIES"] = "SHARED" if self.options.shared else "STATIC"
        toolchain.cache_variables["UOM_WARNINGS_AS_ERRORS"] = "OFF"
        toolchain.cache_variables["UOM_TOOL"] = "OFF"
        toolchain.cache_variables["UOM_BENCH"] = "OFF"
        toolchain.cache_variables["BUILD_TESTING"] = "OFF"
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", src=self.source_folder, dst=os.path.join(self.package_folder, "licenses"))
        # Conan writes these for the settings of each consumer.
        rmdir(self, os.path.join(self.package_folder, "lib", "pkgconfig"))
        rmdir(self, os.path.join(self.package_folder, "lib", "cmake"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "uom")
        self.cpp_info.set_property("cmake_target_name", "uom::uom")
        self.cpp_info.set_property("pkg_config_name", "uom")
        self.cpp_info.libs = ["uom"]
        self.cpp_info.resdirs = [os.path.join("share", "uom")]
        if not self.options.shared:
            self.cpp_info.defines = ["UOM_STATIC"]
            if self.settings.os == "Linux":
                self.cpp_info.system_libs = ["m"]
