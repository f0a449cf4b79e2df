"""Every product's installation: what its collector adds to the request, to the archived report and to the archive."""
import os
import time
from dataclasses import dataclass, field

import pytest

import wine
from crashvane import check_error, install, process_error, run
from expected import DUMP_INFO
from reports import report, write_report, write_settings
from test_package import contents
from wine import windows_path

ARGS = ["-f", "CrashReport.xml", "-d", "-b"]
CRASH_TIME = 1567130000  # ExceptionTime of reports.py
STEP_FAILED = check_error("nRetCode", "Collection::Init")
NO_LOGS = process_error("nRetCode", "Collection::CollectLog")

PLAIN = "[Version]\nversion=1.2\nversionex=ex\nversionName=name\nVersionLineName=line\n"
DOTTED = ("[game.exe]\nMajorVersion=2\nCurVersion=17\nVersion=18\n"
          "[gamefree_y.exe]\nMajorVersion=4\nVersion=41\n")
NEAR, FAR = "logs/client/near.log", "logs/client/far.log"


@dataclass
class Product:
    """An installation around bin/ and what it makes of the crash in reports.py."""
    key: str
    executable: str
    files: dict                                 # name relative to the program's folder -> text
    version: str
    version_ex: str
    fields: dict = field(default_factory=dict)  # further fields of the dump information
    logs: tuple = (NEAR,)
    custom_files: tuple = (NEAR,)
    infos: tuple = ()
    lines: tuple = (STEP_FAILED, STEP_FAILED)


LOGIN = {"account": "acc", "rolename": "hero", "regionname": "north", "servername": "first"}

PRODUCTS = [
    Product("BRENN", "BRENNClient.exe", {
        "../version.cfg": "[Version]\nTessel.version=1.0.0.5\nTessel.versionex=hd_\nTessel.VersionLineName=zhtw\n"
                          "Tessel.VersionCodeName=pakv4\n",
        "../config.ini": "[Main]\nMultiThread=1\n",
        "../engineoptionsnap.ini": "[ZT3DENGINE]\nbEnableRC_ForwardRender=1\nnShadowType=3\nfCameraDistance=1200\n",
        "../userdata/acc/login.ini": "[LastLogin]\nRoleName=hero\nRegionName=north\nServerName=first\n",
    }, "1.0.0.5_SVN", "pakv4_hd_zhtw", fields={**LOGIN, "threadtype": "MultiThread"},
        logs=("../" + NEAR, NEAR), custom_files=("../" + NEAR, "../config.ini"),
        infos=("bEnableRC_ForwardRender=1", "nShadowType=3", "nFoliageDensity=", "fCameraDistance=1200"), lines=()),
    Product("FYRN", "Fyrn.EXE", {
        "version.cfg": "[Version]\nversion=6.6\nversionName=zhtw\n",
        "UserData/Temp/dumpinfo.ini": "[Main]\nAccount=acc\nRoleName=hero\nZoneName=north\nSvrName=first\n",
    }, "6.6", "zhtw", fields=LOGIN, lines=(STEP_FAILED,)),
    Product("GALDOR", "galdor.exe", {
        "version.cfg": PLAIN,
        "config.ini": "[Main]\n",
        "user/setting.ini": "[Login]\nAccount=acc\nRoleName=hero\nRegionName=north\nServerName=first\n",
    }, "1.2_SVN", "exline", fields=LOGIN, logs=(NEAR, "log/engine/e.log"),
        custom_files=(NEAR, "log/engine/e.log", "config.ini"), lines=(STEP_FAILED,)),
    Product("CYMRA", "GameXP.exe", {"version.cfg": DOTTED}, "2.17_SVN", "zhcn-exp"),
    Product("HESK", "hesk.exe", {"update.ini": "[Version]\nAppVersion=3.3.1\n"}, "3.3.1", "zhcn"),
    Product("ORVEL", "GameFree_Y.exe", {"version.cfg": DOTTED}, "4.41", "vnib"),
    Product("XX", "xx.exe", {"version.cfg": PLAIN}, "0.00", "zhcn"),
    Product("TALIS", "TalisWZ.exe", {
        "versionlist.cfg": "[1]\nMajorVersion=1\nVersion=2\nClientVersion=3\nGeneralVersion=4\n",
    }, "1.2.4", "wzzhcn"),
    Product("TOOL", "tool.exe", {"version.cfg": PLAIN}, "1.2", "name"),
    Product("DOVEK", "dovek.exe", {"version.cfg": PLAIN}, "1.2", "line"),
    Product("ESSARN", "essarn.exe", {"version.cfg": DOTTED}, "2.18", "zhcn"),
    Product("EDITOR", "editor.exe", {"version.cfg": PLAIN}, "1.2", "name"),
    Product("IVORELGAMECLIENT", "ivorel.exe", {"version.cfg": PLAIN}, "1.2", "name"),
    Product("MENDWELL", "Mendwell.exe", {"version.cfg": PLAIN}, "1.2", "name",
            logs=(NEAR, "logs/Mendwell/today/m.log"), custom_files=("logs/Mendwell/today/m.log",)),
    Product("QRL", "whatever.exe", {"version.cfg": PLAIN}, "1.2_SVN", "exline", logs=(NEAR, FAR)),
]


def write(path, text, written=CRASH_TIME, encoding="cp1252"):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(text.replace("\n", "\r\n").encode(encoding))
    os.utime(path, (written, written))


def install_product(place, product, receiver, project):
    place.mkdir(exist_ok=True)
    install(place)
    for name, text in product.files.items():
        write(place / name, text)
    for name in product.logs:
        write(place / name, "line\n", CRASH_TIME + (-3000 if name == FAR else 5))
    write_report(place, changes={"Product.ProductName": product.executable})
    write_settings(place, receiver.url, project=project)


def path_of(place, name):
    return windows_path(os.path.normpath(place / name))


@pytest.mark.parametrize("product", PRODUCTS, ids=lambda product: product.key)
def test_a_run_shows_what_the_installation_says(folder, receiver, product):
    place = folder / "bin"
    install_product(place, product, receiver, product.key.lower())
    result = run(place, ARGS)
    assert result.exit_code == 0
    assert result.checks == list(product.lines)
    info, package = receiver.requests

    assert info.fields == {
        **DUMP_INFO, "project": product.key.lower(), "clientname": product.executable, "ver": product.version,
        "verex": product.version_ex, "custominfo": "".join(line + ";" for line in product.infos), **product.fields}
    changes = {"Product.ProductName": product.executable, "Product.ProductVersion": product.version,
               "Product.ProductVersionEx": product.version_ex,
               "Product.ProductThreadType": product.fields.get("threadtype", "MT")}
    archived = contents(package)
    assert archived.pop("CrashReport.xml") == report(
        changes, project=product.key, custom_files=[path_of(place, name) for name in product.custom_files],
        custom_infos=product.infos)
    del archived["crash.dmp"]
    assert archived == {name.rsplit("/", 1)[-1]: (place / name).read_bytes() for name in product.custom_files}


@pytest.mark.parametrize("product", PRODUCTS, ids=lambda product: product.key)
def test_a_project_of_the_command_line_leaves_the_version_as_the_client_said(folder, receiver, product):
    place = folder / "bin"
    install_product(place, product, receiver, "QRL")
    result = run(place, ["-f", "CrashReport.xml", "-a", "-p", product.key], proxy=receiver)
    assert result.exit_code == 0
    (login,) = receiver.requests
    assert (login.fields["project"], login.fields["ver"], login.fields["verex"]) == (product.key, "1.0.0.5", "zhcn_hd")


def product_of(key):
    return next(product for product in PRODUCTS if product.key == key)


def test_folders_in_place_of_all_files_count_as_missing(folder, receiver):
    place = folder / "bin"
    install_product(place, Product("BRENN", "BRENNClient.exe", {}, "", "", logs=()), receiver, "BRENN")
    for name in ("version.cfg", "config.ini", "engineoptionsnap.ini", "userdata/acc/login.ini"):
        (folder / name).mkdir(parents=True)
    write(folder / "logs", "a file in place of a folder")
    result = run(place, ARGS)
    assert result.exit_code == 0
    assert result.checks == [process_error("nRetCode", "BrennCollection::CollectVersion"), STEP_FAILED, NO_LOGS,
                             STEP_FAILED, STEP_FAILED]
    info, _ = receiver.requests
    assert info.fields == {**DUMP_INFO, "project": "BRENN", "clientname": "BRENNClient.exe", "ver": "1.0.0.5",
                           "verex": "zhcn_hd", "threadtype": "SingleThread",
                           "custominfo": "engineoptionsnap.ini is not found;"}


@pytest.mark.parametrize("content", [b"[Version]\r\nversion=7\r\nlong=" + b"y" * (50 << 20), b"\r\n" * (25 << 20)],
                         ids=["one-line", "empty-lines"])
def test_a_version_file_of_50_megabytes_does_not_stop_the_run(folder, receiver, content):
    write_report(folder)
    write_settings(folder, receiver.url, project="TOOL")
    (folder / "version.cfg").write_bytes(content)
    result = run(folder, ["-f", "CrashReport.xml", "-a"])
    assert result.exit_code == 0
    assert receiver.requests[0].fields["ver"] == ("7" if b"version" in content else "")


def test_chinese_folders_accounts_and_values(folder, receiver):
    place = folder / "游戏 客户端" / "程序"
    place.parent.mkdir()
    place.mkdir()
    install(place)
    texts = {"account": "誠信", "rolename": "花间 游", "regionname": "电信一区", "servername": "龙争虎斗"}
    # The second byte of that first letter is a backslash's.
    assert "誠".encode("cp936") == b"\xd5\\"
    game = place.parent
    write(game / "userdata" / texts["account"] / "login.ini", "[LastLogin]\nRoleName={rolename}\n"
          "RegionName={regionname}\nServerName={servername}\n".format(**texts), encoding="cp936")
    write(game / "version.cfg", "[Version]\nTessel.version=版本 1.0\nTessel.versionex=高清\nTessel.VersionLineName=简体\n",
          encoding="cp936")
    write(game / "logs" / "客户端" / "日志.log", "line\n")
    write_report(place, changes={"Product.ProductName": "BrennClient.exe"})
    write_settings(place, receiver.url, project="BRENN")
    result = run(place, ARGS, code_page=936)
    assert result.exit_code == 0
    assert result.checks == []
    info, package = receiver.requests
    assert {name: info.fields[name] for name in texts} == texts
    assert (info.fields["ver"], info.fields["verex"]) == ("版本 1.0_SVN", "高清简体")
    log = windows_path(game / "logs" / "客户端" / "日志.log")
    assert contents(package)["CrashReport.xml"] == report(
        {"Product.ProductName": "BrennClient.exe", "Product.ProductVersion": "版本 1.0_SVN",
         "Product.ProductVersionEx": "高清简体", "Product.ProductThreadType": "SingleThread"},
        project="BRENN", custom_files=[log], custom_infos=["engineoptionsnap.ini is not found"])
    assert b"line\r\n" in contents(package).values()


@pytest.fixture
def drive(folder):
    """The folder is the root of a drive."""
    link = os.path.join(wine.environment(1252)["WINEPREFIX"], "dosdevices", "q:")
    if os.path.lexists(link):
        os.unlink(link)
    os.symlink(folder, link)
    yield "Q:"
    os.unlink(link)


@pytest.mark.parametrize("key", ["BRENN", "TOOL"])
def test_works_at_a_drives_root(folder, receiver, drive, key):
    # One folder above the root is the root.
    files = {name.removeprefix("../"): text for name, text in product_of(key).files.items()}
    install_product(folder, Product(key, product_of(key).executable, files, "", ""), receiver, key)
    result = run(folder, ARGS)
    assert result.exit_code == 0
    assert any(line.startswith(f"[WinMain] {drive}\\Crashvane.exe v") for line in result.log)
    info, package = receiver.requests
    assert (info.fields["ver"], info.fields["verex"]) == (product_of(key).version, product_of(key).version_ex)
    assert f"<CustomFile>{drive}\\logs\\client\\near.log</CustomFile>".encode() in contents(package)["CrashReport.xml"]
    assert result.checks == list(product_of(key).lines)


def test_looks_beside_the_program_and_for_pak_in_the_current_folder(folder, receiver):
    place, elsewhere = folder / "program", folder / "elsewhere"
    install_product(place, product_of("CYMRA"), receiver, "CYMRA")
    (place / "Pak").mkdir()
    elsewhere.mkdir()
    write(elsewhere / "version.cfg", "[game.exe]\nMajorVersion=9\nCurVersion=9\n")
    write(elsewhere / "logs/client/near.log", "not this")
    report_file = windows_path(place / "CrashReport.xml")
    before = {path for path in place.rglob("*")}

    def version():
        write_report(place, changes={"Product.ProductName": "gamexp.exe"})
        assert run(place, ["-f", report_file, "-a"], cwd=elsewhere).exit_code == 0
        return receiver.requests[-1].fields["ver"]

    assert version() == "2.17_SVN"
    (elsewhere / "Pak").mkdir()
    assert version() == "2.17_PAK"
    # Beside the program nothing was written: it may stand where nobody may write.
    assert {path for path in place.rglob("*")} <= before


def test_finds_the_nearest_of_a_hundred_thousand_logs(folder, receiver):
    client = folder / "logs" / "client"
    client.mkdir(parents=True)
    for number in range(100_000):
        (client / f"{number}.log").touch()
    write(client / "54321.log", "the one", CRASH_TIME + 3)
    elapsed, package = timed_run(folder, receiver)
    assert contents(package)["54321.log"] == b"the one"
    assert elapsed < 150


def test_takes_one_log_of_each_of_ten_thousand_folders(folder, receiver):
    for number in range(10_000):
        (folder / "logs" / f"{number}").mkdir(parents=True)
    for number in (1, 5000, 9999):
        write(folder / "logs" / f"{number}" / f"{number}.log", "x", CRASH_TIME + 3600)
    elapsed, package = timed_run(folder, receiver)
    assert set(contents(package)) == {"CrashReport.xml", "crash.dmp", "1.log", "5000.log", "9999.log"}
    assert elapsed < 150


def timed_run(folder, receiver):
    write_report(folder)
    write_settings(folder, receiver.url)
    before = time.monotonic()
    assert run(folder, ARGS, timeout=200).exit_code == 0
    return time.monotonic() - before, receiver.requests[-1]
