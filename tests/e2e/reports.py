"""Makes what a crashing client leaves: a crash report file, a dump, a settings file. All of it by hand, as bytes.

The report's text is the form in which the program itself saves a report, so that a test can compare an archived report
with report(...) of the values that it must hold.
"""
import random

# The facts of the crash, in the order of the file. A dot leads to a nested element, an @ to an attribute.
FACTS = {
    "Exception.ExceptionModuleName": "engine.dll",
    "Exception.ExceptionCode": "0xc0000005",
    "Exception.ExceptionDescription": "Access violation reading 0x0000000000000010",
    "Exception.ExceptionAddress": "0X00007FF6A1B20000",
    "Exception.DumpFileName": "crash.dmp",
    "Exception.DumpKey": "ab12cd34",
    "Exception.DumpGuid": "{6F9619FF-8B86-D011-B42D-00CF4FC964FF}",
    "Exception.ExceptionTime": "1567130000",
    "Exception.TimeToFailure": "125",
    "Exception.ProcessName": "BRENNClientX64.exe",
    "Exception.ProcessInstance": "4",
    "Exception.ProcessMemUsed@PagefileUsage": str(700 << 20),
    "Exception.ProcessMemUsed@WorkingSetSize": str(600 << 20),
    "Exception.ProcessMemPeak@PagefileUsage": str(900 << 20),
    "Exception.ProcessMemPeak@WorkingSetSize": str(800 << 20),
    "Product.ProductName": "BRENNClientX64.exe",
    "Product.ProductVersion": "1.0.0.5",
    "Product.ProductVersionEx": "zhcn_hd",
    "Product.ProductThreadType": "MT",
    "Product.ProductBitType": "x64",
    "Machine.IP": "192.168.1.7",
    "Machine.UUID": "4C4C4544-0042",
    "Machine.NewUUID": "4C4C4544-0043",
    "Machine.OS": "Windows 10 (10.0.19045)",
    "Machine.Processor": "Example CPU @ 3.60GHz",
    "Machine.PhysMemory@TotalMemory": str(16384 << 20),
    "Machine.PhysMemory@AvailMemory": str(4096 << 20),
    "Machine.Pagefile@TotalMemory": str(20480 << 20),
    "Machine.Pagefile@AvailMemory": str(5120 << 20),
    "Machine.VideoCardInfo.VideoCardDescription": "Example Graphics 8",
    "Machine.VideoCardInfo.VideoCardDriver": "example.sys",
    "Machine.VideoCardInfo.VideoDriverVersion": "31.0.15.2698",
    "Machine.VideoCardInfo.VideoCardMemory@TotalMemory": str(8192 << 20),
    "Machine.VideoCardInfo.VideoCardMemory@AvailMemory": str(6144 << 20),
}
MODULE = {"FullPath": "C:\\Game\\bin64\\engine.dll", "BaseOfImage": "0x10000000", "SizeOfImage": "0x1000",
          "TimeDateStamp": "1567000000", "FileVersion": "1.0.0.5", "ProductVersion": "1.0.0.5"}

ESCAPES = (("&", "&amp;"), ("<", "&lt;"), (">", "&gt;"), ('"', "&quot;"), ("'", "&apos;"))

SETTINGS = {"PlayerLoginUrl": "/dumpserver/playerloginbase.php", "SessionUrl": "/dumpserver/dumpsession.php",
            "DumpInfoUrl": "/dumpserver/dumpinfo.php", "DumpFileUrl": "/dumpserver/dumpfile.php",
            "DumpSolutionUrl": "/dump_api/get_solution"}


def report(changes=None, project="QRL", modules=(MODULE,), custom_files=(), custom_infos=(), encoding="cp936"):
    """A report file's bytes. changes: FACTS key -> another text, or None to leave it out."""
    facts = {**FACTS, **(changes or {})}
    unknown = facts.keys() - FACTS.keys()
    assert not unknown, f"no such fact: {unknown}"
    lines = ['<?xml version="1.0" encoding="gb2312" ?>', f'<CrashReporter Project="{escape(project)}">']
    tree = {}
    for key, value in facts.items():
        if value is not None:
            put(tree, key, value)
    write_tree(lines, tree, 1)
    write_list(lines, "Modules", [empty_element("Module", module) for module in modules])
    write_list(lines, "Custom", [element("CustomFile", one) for one in custom_files]
               + [element("CustomInfo", one) for one in custom_infos])
    lines.append("</CrashReporter>")
    return "".join(line + "\r\n" for line in lines).encode(encoding)


def write_report(folder, name="CrashReport.xml", dump=b"MDMP not a real one", **options):
    """Writes a report, and beside it the dump that it names by default (none when dump is None)."""
    (folder / name).write_bytes(report(**options))
    if dump is not None:
        (folder / "crash.dmp").write_bytes(dump)
    return folder / name


def write_settings(folder, url, project="QRL", name="Crashvane.cfg", encoding="cp936", **changes):
    """Writes the settings with all addresses at a server. changes: key -> another text, or None to leave it out."""
    values = {**{key: url + path for key, path in SETTINGS.items()}, "Project": project, **changes}
    lines = ["[Crashvane]"] + [f"{key}={value}" for key, value in values.items() if value is not None]
    (folder / name).write_bytes("".join(line + "\r\n" for line in lines).encode(encoding))
    return folder / name


def random_bytes(count, seed=1):
    """Bytes that do not compress, the same ones every time."""
    return random.Random(seed).randbytes(count)


def escape(text):
    for plain, escaped in ESCAPES:
        text = text.replace(plain, escaped)
    return text


def put(tree, key, value):
    path, _, attribute = key.partition("@")
    *parents, name = path.split(".")
    for parent in parents:
        tree = tree.setdefault(parent, {})
    if attribute:
        tree.setdefault(name, []).append((attribute, value))
    else:
        tree[name] = value


def write_tree(lines, tree, depth):
    blanks = "    " * depth
    for name, value in tree.items():
        if isinstance(value, dict):
            lines.append(f"{blanks}<{name}>")
            write_tree(lines, value, depth + 1)
            lines.append(f"{blanks}</{name}>")
        else:
            written = empty_element(name, dict(value)) if isinstance(value, list) else element(name, value)
            lines.append(blanks + written)


def write_list(lines, name, elements):
    if not elements:
        lines.append(f"    <{name} />")
        return
    lines.extend([f"    <{name}>", *("        " + one for one in elements), f"    </{name}>"])


def element(name, text):
    return f"<{name}>{escape(text)}</{name}>"


def empty_element(name, attributes):
    return f"<{name} " + " ".join(f'{key}="{escape(value)}"' for key, value in attributes.items()) + " />"
