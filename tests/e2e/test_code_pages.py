"""Texts and paths in the code page of the player's system arrive as UTF-8."""
import pytest

from crashvane import install, run
from expected import VERSION_FILE
from reports import report, write_report, write_settings
from test_package import SAVED, contents
from wine import windows_path

ARGS = ["-f", "CrashReport.xml", "-a", "-d", "-b"]
CHINESE = {"Exception.ExceptionModuleName": "引擎.dll", "Machine.OS": "视窗 10 专业版", "Machine.Processor": "处理器",
           "Product.ProductName": "客户端.exe", "Machine.VideoCardInfo.VideoCardDescription": "显卡 & <驱动>"}
WESTERN = {"Exception.ExceptionModuleName": "moteur_é.dll", "Machine.OS": "Système 10 – édition",
           "Machine.Processor": "µP “x”", "Product.ProductName": "jeu€.exe",
           "Machine.VideoCardInfo.VideoCardDescription": "Größe & <ß>"}


@pytest.mark.parametrize("code_page, encoding, texts", [(936, "cp936", CHINESE), (1252, "cp1252", WESTERN)])
def test_texts_of_the_report_arrive_as_they_were_meant(folder, receiver, code_page, encoding, texts):
    infos = list(texts.values())
    write_report(folder, changes=texts, custom_infos=infos, encoding=encoding)
    write_settings(folder, receiver.url)
    (folder / "version.cfg").write_bytes(VERSION_FILE)
    result = run(folder, ARGS, code_page=code_page)
    assert result.exit_code == 0
    login, info, package = receiver.requests
    assert login.fields["videocard"] == texts["Machine.VideoCardInfo.VideoCardDescription"]
    assert login.fields["cpubrand"] == texts["Machine.Processor"]
    assert info.fields["os"] == texts["Machine.OS"]
    assert info.fields["clientname"] == texts["Product.ProductName"]
    assert info.fields["exceptionmodule"] == texts["Exception.ExceptionModuleName"]
    assert info.fields["custominfo"] == "".join(text + ";" for text in infos)
    assert contents(package)["CrashReport.xml"] == report({**texts, **SAVED}, custom_infos=infos, encoding=encoding)


def test_a_chinese_report_on_a_western_system_is_saved_byte_for_byte(folder, receiver):
    # Bytes that both code pages know: 产 is B2 FA in one, "²ú" in the other.
    write_report(folder, changes={"Machine.OS": "产品"}, encoding="cp936")
    write_settings(folder, receiver.url)
    (folder / "version.cfg").write_bytes(VERSION_FILE)
    assert run(folder, ARGS, code_page=1252).exit_code == 0
    _, info, package = receiver.requests
    assert info.fields["os"] == "²úÆ·"
    assert contents(package)["CrashReport.xml"] == report({"Machine.OS": "产品", **SAVED}, encoding="cp936")


@pytest.mark.parametrize("code_page, name, encoding", [(936, "崩溃 报告 发送", "cp936"), (1252, "Jeu d'été & co", "cp1252")])
def test_works_in_a_folder_with_blanks_and_letters_of_the_code_page(folder, receiver, code_page, name, encoding):
    place = folder / name
    place.mkdir()
    install(place)
    report_name = f"{name}.xml"
    write_report(place, name=report_name, custom_files=[f"{name}.log"], encoding=encoding)
    (place / f"{name}.log").write_bytes(b"line")
    write_settings(place, receiver.url)
    (place / "version.cfg").write_bytes(VERSION_FILE)
    result = run(place, ["-f", windows_path(place / report_name), "-d", "-b"], code_page=code_page)
    assert result.exit_code == 0
    info, package = receiver.requests
    assert info.fields["ver"] == "2.4.6_SVN"
    assert package.file_name == f"{windows_path(place)}\\{package.fields['filename']}"
    assert list(contents(package).values())[1:] == [b"MDMP not a real one", b"line"]
    assert result.files == {"version.cfg", f"{name}.log"}
    assert f"[WinMain] {windows_path(place)}\\Crashvane.exe v" in "\n".join(result.log)


def test_names_in_the_archive_are_bytes_of_the_code_page(folder, receiver):
    write_report(folder, custom_files=["日志.log"])
    (folder / "日志.log").write_bytes(b"line")
    write_settings(folder, receiver.url)
    assert run(folder, ["-f", "CrashReport.xml", "-d", "-b"], code_page=936).exit_code == 0
    (name,) = [name for name in contents(receiver.requests[-1]) if name.endswith(".log")]
    # Entries carry no flag for UTF-8, so readers take the bytes for code page 437.
    assert name.encode("cp437").decode("cp936") == "日志.log"


def test_a_text_that_is_cut_in_a_character_leaves_its_neighbours_whole(folder, receiver):
    whole = report({"Machine.OS": "OS@HALF@", "Machine.Processor": "next"})
    write_report(folder)
    (folder / "CrashReport.xml").write_bytes(whole.replace(b"@HALF@", b"\xb2"))
    write_settings(folder, receiver.url)
    (folder / "version.cfg").write_bytes(VERSION_FILE)
    assert run(folder, ARGS, code_page=936).exit_code == 0
    _, info, package = receiver.requests
    assert info.fields["os"].startswith("OS")
    assert info.fields["cpubrand"] == "next"
    assert info.fields["physfreemem"] == "4096"
    assert b"<OS>OS\xb2</OS>\r\n" in contents(package)["CrashReport.xml"]


def test_a_project_key_of_chinese_letters_arrives_as_utf8(folder, receiver):
    write_report(folder)
    write_settings(folder, receiver.url, project="游戏")
    assert run(folder, ["-f", "CrashReport.xml", "-a"], code_page=936).exit_code == 0
    assert receiver.requests[0].fields["project"] == "游戏"
