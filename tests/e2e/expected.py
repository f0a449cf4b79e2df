"""What the crash in reports.py must look like on the wire and in the log, written out by hand."""
from crashvane import check_error

VERSION_FILE = b"[Version]\r\nversion=2.4.6\r\nversionex=hd\r\nVersionLineName=zhcn\r\n"

# A product without login and thread model of its own says so on every run, in this order.
NO_LOGIN_NO_THREADS = [check_error("nRetCode", "Collection::Init")] * 2

PLAYER_LOGIN = {
    "bittype": "x64",
    "cpubrand": "Example CPU @ 3.60GHz",
    "newuuid": "4C4C4544-0043",
    "project": "QRL",
    "threadtype": "MT",
    "totalphysmem": "16384",
    "uuid": "4C4C4544-0042",
    "ver": "2.4.6_SVN",
    "verex": "hdzhcn",
    "videocard": "Example Graphics 8",
}
SESSION = {
    "clientname": "BRENNClientX64.exe",
    "newuuid": "4C4C4544-0043",
    "project": "QRL",
    "uuid": "4C4C4544-0042",
    "ver": "2.4.6_SVN",
    "verex": "hdzhcn",
}
DUMP_INFO = {
    "PageFileAvai": "5120",
    "PageFileTotal": "20480",
    "ProcessInstance": "4",
    "ProcessName": "BRENNClientX64.exe",
    "ProcessPagefilePeak": "900",
    "ProcessPagefileUsed": "700",
    "ProcessPhysicsMemPeak": "800",
    "ProcessPhysicsMemUsed": "600",
    "account": "",
    "bittype": "x64",
    "clientname": "BRENNClientX64.exe",
    "cpubrand": "Example CPU @ 3.60GHz",
    "custominfo": "",
    "driver": "example.sys",
    "driverversion": "31.0.15.2698",
    "exceptionmodule": "engine.dll",
    "guid": "{6F9619FF-8B86-D011-B42D-00CF4FC964FF}",
    "key": "ab12cd34",
    "newuuid": "4C4C4544-0043",
    "os": "Windows 10 (10.0.19045)",
    "physfreemem": "4096",
    "project": "QRL",
    "regionname": "",
    "rolename": "",
    "servername": "",
    "threadtype": "MT",
    "timetofailure": "2",
    "totalphysmem": "16384",
    "uuid": "4C4C4544-0042",
    "ver": "2.4.6_SVN",
    "verex": "hdzhcn",
    "videocard": "Example Graphics 8",
    "videocardfreemem": "6144",
    "videocardmem": "8192",
}
PACKAGE = {  # and "filename", which carries the process id
    "guid": "{6F9619FF-8B86-D011-B42D-00CF4FC964FF}",
    "key": "ab12cd34",
    "project": "QRL",
    "remark": "",
}
