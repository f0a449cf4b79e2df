"""Memory runs out in a step that cannot go on without: a build of the program in which the session request finds none."""
import shutil

from crashvane import PROGRAM, run
from reports import write_report, write_settings


def test_the_run_is_given_up_and_cleaned_up(folder, receiver):
    shutil.copy(PROGRAM.parent / "tests/unit/out_of_memory.exe", folder)
    write_report(folder)
    write_settings(folder, receiver.url)
    result = run(folder, ["-f", "CrashReport.xml", "-a", "-m", "-d", "-b"], program="out_of_memory.exe")
    assert result.exit_code == 1
    assert result.log[-1] == "[main] The run is given up: std::bad_alloc"
    assert result.files == {"out_of_memory.exe"}
    assert [one.endpoint for one in receiver.requests] == ["playerlogin"]
