"""The five endpoints of the crash server and the fields that each of them is sent."""
from dataclasses import dataclass


@dataclass(frozen=True)
class Endpoint:
    name: str
    path: str
    title: str
    fields: tuple
    takes_file: bool = False
    body: str = "OK"  # what a sender is told when nothing else was set


ENDPOINTS = (
    Endpoint("playerlogin", "/dumpserver/playerloginbase.php", "Active machine", (
        "bittype", "cpubrand", "newuuid", "project", "threadtype", "totalphysmem", "uuid", "ver", "verex",
        "videocard")),
    Endpoint("session", "/dumpserver/dumpsession.php", "Session", (
        "clientname", "newuuid", "project", "uuid", "ver", "verex")),
    Endpoint("dumpinfo", "/dumpserver/dumpinfo.php", "Dump information", (
        "PageFileAvai", "PageFileTotal", "ProcessInstance", "ProcessName", "ProcessPagefilePeak", "ProcessPagefileUsed",
        "ProcessPhysicsMemPeak", "ProcessPhysicsMemUsed", "account", "bittype", "clientname", "cpubrand", "custominfo",
        "driver", "driverversion", "exceptionmodule", "guid", "key", "newuuid", "os", "physfreemem", "project",
        "regionname", "rolename", "servername", "threadtype", "timetofailure", "totalphysmem", "uuid", "ver", "verex",
        "videocard", "videocardfreemem", "videocardmem")),
    Endpoint("dumptype", "/dump_api/get_dump_type", "Solution query", ("dump_key", "project"), body="0"),
    Endpoint("dumpfile", "/dumpserver/dumpfile.php", "Dump package", (
        "filename", "guid", "key", "project", "remark"), takes_file=True),
)

BY_NAME = {endpoint.name: endpoint for endpoint in ENDPOINTS}


def find(name_or_path):
    """The endpoint of a short name or of a path, or None."""
    for endpoint in ENDPOINTS:
        if name_or_path in (endpoint.name, endpoint.path):
            return endpoint
    return None
