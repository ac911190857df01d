#!/usr/bin/env python3
"""tests/check_objects.py FORM OBJECT...: may these objects be linked with those of other forms,
and do their kernels work as their form says?

FORM is the name of a form's type, or Core for objects without flags of their own. Prints each
fault; ends with status 1 if there is one.
"""
import re
import subprocess
import sys

# Bytes of the widest register that a form's unit may name.
WIDEST = {"Core": 16, "Scalar": 16, "Sse2": 16, "Ssse3": 16, "Text64": 16, "Avx2": 32, "Avx512": 64}
WITHOUT_FLAGS = ("Core", "Scalar", "Sse2")
REGISTER = {16: "%xmm", 32: "%ymm", 64: "%zmm"}

# Wide kernels that use no register of their form's width, by name, and why that is right.
USES_NONE = {}

# What only newer processors have, refused in forms whose widest register is at most this wide.
NEWER = {
    16: r"v[a-z]|k[a-z]+[bwdq]\s|.*%([yz]mm|k[0-7])",
    32: r"k[a-z]+[bwdq]\s|.*(%zmm|%k[0-7]|mm(1[6-9]|2\d|3[01])\b)",
    64: r"(andn|bextr|bls(i|r|msk)|bzhi|mulx|pdep|pext|rorx|(sa|sh)[lr]x|lzcnt|ad[co]x|movbe)[lq]?\s",
}
# Kernels that end with a fence, after the floating-point control is restored.
FENCED = ("BlendBurnPlanes8", "BlendScreenShare8")

# What no kernel executes. Fused products are not rounded before the addition, and each maker
# approximates differently; the others are very slow on some processors. A store has its memory
# last.
TO_MEMORY = r"[^(]*\s.*\)(\{%k\d\})?$"
UNWANTED = {
    "gather": r"vp?gather",
    "scatter": r"vp?scatter",
    "compress store": r"vp?compress" + TO_MEMORY,
    "masked store": r"maskmov|vp?maskmov" + TO_MEMORY,
    "fused product": r"vfn?m(add|sub)",
    "approximation": r"v?(rcp|rsqrt)",
}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def functions(path):
    """Returns each function's instructions, and the names that it refers to."""
    bodies, references, name = {}, {}, None
    for line in output_of("objdump", "-dr", "--no-show-raw-insn", path).splitlines():
        if match := re.match(r"[0-9a-f]+ <(.+)>:$", line):
            name = match[1]
            bodies[name], references[name] = [], set()
        elif match := re.match(r"\s+[0-9a-f]+: R_X86_64_\w+\s+(.+?)([-+]0x[0-9a-f]+)?$", line):
            references[name].add(match[1].removeprefix(".text."))
        elif match := re.match(r"\s+[0-9a-f]+:\t(.+)", line):
            bodies[name].append(match[1].split("#")[0].strip())
    return bodies, references


def reached(start, references):
    found, todo = set(), [start]
    while todo:
        name = todo.pop()
        if name in references and name not in found:
            found.add(name)
            todo += references[name]
    return found


def faults_of_names(path, form):
    for line in output_of("nm", path).splitlines():
        kind, name = line.split()[-2:]
        if "_GLOBAL__sub_I" in name:
            yield f"runs before main: {name}"
        if kind not in "WVu" or form == "Core":
            continue
        # Of functions with one name the linker keeps one, from any unit.
        named = {other for other in WIDEST if re.search(rf"(?<!\d){len(other)}{other}E", name)}
        if named != {form} and (named or form not in WITHOUT_FLAGS):
            yield f"names {', '.join(sorted(named)) or 'no form'}: {name}"


def faults_of_code(bodies, form):
    newer = "|".join(pattern for width, pattern in NEWER.items() if width >= WIDEST[form])
    for name, body in bodies.items():
        for instruction in body:
            if re.match(newer, instruction):
                yield f"newer than {form}: {instruction} in {name}"
            for what, pattern in UNWANTED.items():
                if re.match(pattern, instruction):
                    yield f"{what}: {instruction} in {name}"


def faults_of_fences(bodies):
    for name, body in bodies.items():
        if not any(kernel in name for kernel in FENCED) or "Entry" in name:
            continue
        order = [instruction.split()[0].removeprefix("v") for instruction in body
                 if re.match(r"v?(st|ld)mxcsr|mfence", instruction)]
        if order[:2] != ["stmxcsr", "ldmxcsr"] or order[-2:] != ["ldmxcsr", "mfence"]:
            yield f"control and fence in another order: {name} has {' '.join(order) or 'none'}"


def faults_of_returns(bodies):
    """A processor may keep its own stack of return addresses: each return must go to its call."""
    for name, body in bodies.items():
        if name.startswith("_ZN7vantrix11PassThrough") and not body[0].startswith("jmp"):
            yield f"passes on without a jump: {name}"
        for before, after in zip(body, body[1:]):
            if before.startswith("push") and after.startswith("ret"):
                yield f"returns to what was pushed: {name}"


def kernels_of(bodies, references):
    """Returns the kernels: a list of builds holds getters, and a getter refers to a kernel."""
    return {kernel for name in bodies if re.search("vantrixL?5Entry", name)
            for kernel in references[name] if kernel in bodies}


def main():
    form, objects = sys.argv[1], sys.argv[2:]
    faults, kernels = [], 0
    for path in objects:
        bodies, references = functions(path)
        found = [*faults_of_names(path, form), *faults_of_code(bodies, form),
                 *faults_of_fences(bodies), *faults_of_returns(bodies)]
        for kernel in kernels_of(bodies, references):
            kernels += 1
            text = "\n".join("\n".join(bodies[name]) for name in reached(kernel, references))
            register = REGISTER[WIDEST[form]]
            if register not in text and WIDEST[form] > 16:
                if not any(name in kernel for name in USES_NONE):
                    found.append(f"no {register} in kernel {kernel}")
        faults += [f"{path}: {fault}" for fault in sorted(set(found))]
    print("\n".join(faults))
    print(f"{form}: {len(objects)} objects, {kernels} kernels, {len(faults)} faults")
    sys.exit(1 if faults or not objects else 0)


if __name__ == "__main__":
    main()
