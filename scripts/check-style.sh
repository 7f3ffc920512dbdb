#!/usr/bin/env bash
# check-style.sh - holds the tree to the house conventions of CONTRIBUTING.md
# that a script can see, and prints every finding as file:line: what is wrong.
#
#   scripts/check-style.sh [--fix] [--build DIR] [--no-symbols]
#
# --fix         reformats every C and C++ file with clang-format first
# --build DIR   the build tree whose static archive (libUtilsStatic.a) the
#               symbol check reads; default: build
# --no-symbols  skips the symbol check (for a tree that is not built)
#
# Checked: clang-format's formatting; the "name - purpose" first line and the
# include guard derived from the path; the sources each folder lists in its
# sources.cmake and the folders in UTILS_SUBSYSTEMS; the folder layering of
# the README's table; that every global symbol of the library is exported, in
# utils::, a C-linkage utils_ name or a member of an interface type; no NULL
# in C++ code; and, outside the Markdown files, no citation of an outside
# text (numbered parts such as "Part N.M", or such a text by name). Exit
# status 1 on findings.
set -euo pipefail
cd "$(dirname "$0")/.."
command -v python3 > /dev/null || { echo "check-style: python3 is needed (scripts/install-deps.sh)"; exit 2; }
exec python3 - "$@" <<'PYTHON'
import os
import re
import shutil
import subprocess
import sys

args = sys.argv[1:]
fix = '--fix' in args
symbols = '--no-symbols' not in args
build = 'build'
if '--build' in args:
    i = args.index('--build')
    if i + 1 >= len(args):
        sys.exit('check-style: --build needs a directory')
    build = args[i + 1]
unknown = [a for a in args if a not in ('--fix', '--no-symbols', '--build', build)]
if unknown:
    sys.exit('check-style: unknown argument %s (see the head of scripts/check-style.sh)' % unknown[0])

CODE_DIRS = ('src', 'include', 'tools', 'tests', 'bench', 'fuzz')
CODE_EXT = ('.c', '.cc', '.cpp', '.h')
findings = []


def report(path, line, message):
    findings.append('%s:%d: %s' % (path, line, message))


def project_files():
    """Every file of the project: git's view when there is one, else a walk."""
    try:
        out = subprocess.run(['git', 'ls-files', '--cached', '--others', '--exclude-standard'],
                             capture_output=True, text=True, check=True).stdout
        return sorted(f for f in out.splitlines() if os.path.isfile(f))
    except (OSError, subprocess.CalledProcessError):
        found = []
        for root, dirs, names in os.walk('.'):
            dirs[:] = [d for d in dirs if not d.startswith(('.', 'build'))]
            found += [os.path.relpath(os.path.join(root, n)) for n in names]
        return sorted(found)


FILES = project_files()
CODE = [f for f in FILES if f.split('/')[0] in CODE_DIRS and f.endswith(CODE_EXT)]


def read(path):
    with open(path, encoding='utf-8', errors='replace') as f:
        return f.read()


# Comments and string literals, so that code checks look at code only.
LEXEME = re.compile(r'//[^\n]*|/\*.*?\*/|(?:u8|u|U|L)?"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'', re.S)


def code_only(text):
    return LEXEME.sub(lambda m: re.sub(r'[^\n]', ' ', m.group(0)), text)


# --- clang-format -----------------------------------------------------------
clang_format = shutil.which('clang-format-14') or shutil.which('clang-format')
if clang_format is None:
    report('.clang-format', 1, 'clang-format is not installed (scripts/install-deps.sh installs it)')
else:
    if fix:
        subprocess.run([clang_format, '-i', '--style=file'] + CODE, check=True)
    result = subprocess.run([clang_format, '--dry-run', '--Werror', '--style=file'] + CODE,
                            capture_output=True, text=True)
    seen = set()
    for line in result.stderr.splitlines():
        m = re.match(r'(.+?):(\d+):\d+: (?:error|warning): code should be clang-formatted', line)
        if m and m.group(1) not in seen:
            seen.add(m.group(1))
            report(os.path.relpath(m.group(1)), int(m.group(2)),
                   'not formatted as .clang-format says (scripts/check-style.sh --fix)')

# --- first line and include guard ---------------------------------------------
for path in CODE:
    text = read(path)
    first = text.split('\n', 1)[0]
    name = os.path.basename(path)
    public = path.startswith('include/')
    opener = '/* ' if public else '// '
    if not re.match(re.escape(opener + name) + r' - \S', first):
        report(path, 1, 'the first line must read "%s%s - <what it is for>"' % (opener, name))
    if path.endswith('.h'):
        stem = os.path.splitext(name)[0].upper()
        folder = os.path.basename(os.path.dirname(path)).upper()
        guard = 'UTILS_%s_H' % stem if public else 'UTILS_%s_%s_H' % (folder, stem)
        m = re.search(r'^#ifndef (\w+)\n#define (\w+)$', text, re.M)
        if m is None:
            report(path, 1, 'no include guard (expected %s)' % guard)
        elif m.group(1) != guard or m.group(2) != guard:
            report(path, text.count('\n', 0, m.start()) + 1,
                   'include guard %s, expected %s' % (m.group(1), guard))

# --- sources.cmake and UTILS_SUBSYSTEMS ---------------------------------------
library_cmake = read('cmake/Library.cmake')
m = re.search(r'set\(UTILS_SUBSYSTEMS\s+([^)]*)\)', library_cmake)
subsystems = m.group(1).split() if m else []
if not subsystems:
    report('cmake/Library.cmake', 1, 'no set(UTILS_SUBSYSTEMS ...) list')
for sub in subsystems:
    listing = 'src/%s/sources.cmake' % sub
    if not os.path.isfile(listing):
        report('cmake/Library.cmake', 1, 'subsystem %s has no %s' % (sub, listing))
        continue
    text = read(listing)
    listed = set()
    for mm in re.finditer(r'\$\{CMAKE_CURRENT_LIST_DIR\}/([^\s)"]+)', text):
        rel = mm.group(1)
        listed.add(rel)
        if not os.path.isfile('src/%s/%s' % (sub, rel)):
            report(listing, text.count('\n', 0, mm.start()) + 1, 'lists %s, which does not exist' % rel)
    for path in CODE:
        if path.startswith('src/%s/' % sub) and path.endswith(('.c', '.cpp')):
            rel = path[len('src/%s/' % sub):]
            if rel not in listed:
                report(path, 1, 'not listed in %s' % listing)
for path in FILES:
    if path.startswith('src/') and not path.startswith('src/exports/') and \
            path.endswith(CODE_EXT + ('.cmake',)):
        folder = os.path.dirname(path)[len('src/'):]
        if not any(folder == s or folder.startswith(s + '/') for s in subsystems):
            report(path, 1, 'its folder src/%s is not in UTILS_SUBSYSTEMS (cmake/Library.cmake)' % folder)

# --- layering -------------------------------------------------------------------
readme = read('README.md')
rows = {}
section = readme.split('### Layering', 1)
for line in (section[1] if len(section) > 1 else '').splitlines():
    mm = re.match(r'\|\s*`src/([^`]+?)/?`\s*\|\s*(.*?)\s*\|\s*$', line)
    if mm:
        allowed = [] if mm.group(2).lower() == 'none' else [a.strip() for a in mm.group(2).split(',')]
        rows[mm.group(1)] = allowed
if not rows:
    report('README.md', 1, 'no layering table under "### Layering"')
short_names = {folder.split('/')[-1]: folder for folder in rows}
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)
INTERNAL_ROOTS = ('Utils/', 'NLP/', 'Hmm/')
for path in CODE:
    text = read(path)
    top = path.split('/')[0]
    for mm in INCLUDE.finditer(text):
        target = mm.group(1)
        line = text.count('\n', 0, mm.start()) + 1
        internal = target.startswith(INTERNAL_ROOTS)
        if top == 'src':
            own = os.path.dirname(path)[len('src/'):]
            if not internal:
                if '/' not in target and not os.path.isfile('include/' + target):
                    report(path, line, '"%s" is neither a public header nor written from src/' % target)
                continue
            folder = os.path.dirname(target)
            if folder == own:
                continue
            if own not in rows:
                report(path, line, 'src/%s has no row in the README\'s layering table' % own)
            elif folder.split('/')[-1] not in rows[own] or short_names.get(folder.split('/')[-1]) != folder:
                report(path, line, 'src/%s may not include "%s" (README layering table)' % (own, target))
        elif internal and not (path.startswith(('tests/internal/', 'tests/alloc/')) or top == 'fuzz'):
            report(path, line, 'internal header "%s": only tests/internal/, tests/alloc/ and fuzz/ may '
                   'include one' % target)

# --- NULL in C++ code -----------------------------------------------------------
for path in CODE:
    if path.endswith('.c') or path.startswith('include/'):
        continue
    code = code_only(read(path))
    for mm in re.finditer(r'\bNULL\b', code):
        report(path, code.count('\n', 0, mm.start()) + 1, 'NULL in C++ code: write nullptr')

# --- no citation of an outside text -------------------------------------------------
DESIGN = re.compile(r'\b[Pp]art [0-9]\.[0-9]|\b' + 'spe' + r'c(ification)?\b|' + 'spe' + r'c\.md')
for path in FILES:
    if DESIGN.search(path):
        report(path, 1, 'the file name cites an outside text')
    if path.endswith('.md'):
        continue
    try:
        text = read(path)
    except OSError:
        continue
    for mm in DESIGN.finditer(text):
        report(path, text.count('\n', 0, mm.start()) + 1,
               'cites an outside text ("%s"): write as this library\'s own developer' % mm.group(0))

# --- global symbols of the library ------------------------------------------------
if symbols:
    archive = os.path.join(build, 'libUtilsStatic.a')
    if not os.path.isfile(archive):
        report(archive, 1, 'missing: build the UtilsStatic target first, or pass --build DIR or --no-symbols')
    else:
        exported = set()
        for listing in sorted(f for f in FILES if re.match(r'src/exports/[^/]+\.txt$', f)):
            exported.update(l.strip() for l in read(listing).splitlines() if l.strip())
        # Opaque types of the interface (typedef struct X X;) whose class is
        # the library's own: their members are interface names too.
        interface_types = set()
        for header in (f for f in FILES if f.startswith('include/') and f.endswith('.h')):
            interface_types.update(re.findall(r'typedef struct (\w+) \1;', read(header)))
        nm = subprocess.run(['nm', '-A', '-g', '--defined-only', archive],
                            capture_output=True, text=True, check=True).stdout
        special = r'(?:T[VIST]|GV|TT|Th n?\d+_|Tv n?\d+_n?\d+_)?Z?'.replace(' ', '')
        in_utils = re.compile(r'_Z' + special + r'N[rVKRO]*5utils')
        in_std_or_re2 = re.compile(r'_Z' + special + r'(?:N[rVKRO]*)?(?:St|3re2|9__gnu_cxx|S[absiod])')
        in_interface = re.compile(r'_Z' + special + r'(?:N[rVKRO]*)?(\d+)(\w+)')
        bad = []
        seen_symbols = set()
        for line in nm.splitlines():
            mm = re.match(r'(.*?):([^:]+):\s*[0-9a-fA-F]*\s+(\w)\s+(\S+)$', line)
            if mm is None:
                continue
            member, kind, name = mm.group(2), mm.group(3), mm.group(4)
            if name in exported or name.startswith('utils_') or in_utils.match(name):
                continue
            # C library functions the library defines for its own link unit
            # (hidden in libUtils.so), so that Mini-XML, linked in, calls them.
            if name in ('strdup',):
                continue
            # Weak instances of the standard library's and RE2's templates and
            # inline operators, and the compiler's own data, belong to them.
            if kind in 'WwVvu' and (in_std_or_re2.match(name) or re.match(r'_Z(nw|na|dl|da)', name)
                                    or name.startswith('DW.ref.')):
                continue
            mi = in_interface.match(name)
            if mi and mi.group(2)[:int(mi.group(1))] in interface_types:
                continue
            if (member, name) not in seen_symbols:
                seen_symbols.add((member, name))
                bad.append((member, name))
        if bad:
            demangled = subprocess.run(['c++filt'], input='\n'.join(n for _, n in bad), capture_output=True,
                                       text=True).stdout.splitlines()
            shown = set()
            for (member, name), readable in zip(bad, demangled):
                if (member, readable) in shown:
                    continue  # constructor and destructor variants read alike
                shown.add((member, readable))
                report('%s(%s)' % (archive, member), 1,
                       'global symbol "%s" is not exported, not in utils::, not a C-linkage utils_ name'
                       % readable)

for finding in findings:
    print(finding)
if findings:
    print('check-style: %d finding(s); CONTRIBUTING.md says what each convention is' % len(findings))
    sys.exit(1)
print('check-style: %d files follow the conventions' % len(CODE))
PYTHON
