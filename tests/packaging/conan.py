"""The recipe for Conan, with stand-ins for the modules of Conan that it imports: that it reads the version, that the
sources which it exports are enough to configure and install the library, and that its settings are known here.

conan.py RECIPE WORK VERSION
"""

import fnmatch
import runpy
import shutil
import subprocess
import sys
import types
from pathlib import Path

recipe_path, work, version = Path(sys.argv[1]).resolve(), Path(sys.argv[2]), sys.argv[3]
shutil.rmtree(work, ignore_errors=True)


class Recorder:
    """CMakeToolchain, CMakeDeps and CMake."""

    made = []

    def __init__(self, *_):
        self.cache_variables = {}
        Recorder.made.append(self)

    def generate(self):
        pass


def copy(_, pattern, src, dst):
    """Whole patterns against paths below src, as in Conan."""
    found = [p for p in Path(src).glob(pattern.replace("/*", "/**/*")) if p.is_file()]
    assert found and all(fnmatch.fnmatch(str(p.relative_to(src)), pattern) for p in found), f"{pattern}: matches no file"
    for path in found:
        target = Path(dst) / path.relative_to(src)
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(path, target)


def module(name, **names):
    sys.modules[name] = types.ModuleType(name)
    vars(sys.modules[name]).update(names)


module("conan", ConanFile=object)
module("conan.tools")
module("conan.tools.cmake", CMake=Recorder, CMakeDeps=Recorder, CMakeToolchain=Recorder, cmake_layout=lambda _: None)
module("conan.tools.files", copy=copy, load=lambda _, path: Path(path).read_text(), rmdir=None)

recipe = runpy.run_path(str(recipe_path))["UomConan"]()
recipe.recipe_folder = str(recipe_path.parent)
recipe.export_sources_folder = str(work / "sources")
recipe.options = types.SimpleNamespace(shared=False)
recipe.set_version()
assert recipe.version == version, recipe.version
recipe.export_sources()
recipe.generate()
options = [f"-D{key}={value}" for key, value in Recorder.made[0].cache_variables.items()]


def cmake(*words):
    done = subprocess.run(["cmake", *map(str, words)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode or "not used by the project" in done.stdout:
        sys.exit(done.stdout[-3000:])


cmake("-S", work / "sources", "-B", work / "build", "-DCMAKE_BUILD_TYPE=Debug", *options)
for component in ["data", "documentation"]:  # which take no compiler
    cmake("--install", work / "build", "--component", component, "--prefix", work / "package")
assert (work / "package/share/uom/uomdata.txt").exists()
sources = {path.name for path in recipe_path.parents[2].glob("*/*.cpp") if path.parent.name not in ("bench", "fuzz", "tests")}
missing = sources - {path.name for path in (work / "sources").rglob("*.cpp")}
assert not missing, f"sources that are not exported: {missing}"
