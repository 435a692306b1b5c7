"""Database servers of the tests' own: one, or the nodes of a cluster, on free ports of the loopback address,
in a folder that goes with the program that started them, however that ends."""
import os
import random
import shutil
import signal
import socket
import subprocess
import tempfile
import time

USER = PASSWORD = "mirav"
PATH = os.environ["PATH"] + ":/usr/sbin:/sbin"
GALERA = "/usr/lib/galera/libgalera_smm.so"
OWNER = {"user": "mysql", "group": "mysql", "extra_groups": []} if os.getuid() == 0 else {}  # no server runs as root


def missing(nodes=1):
    """The package that is not there, for so many nodes."""
    if not shutil.which("mariadbd", path=PATH):
        return "mariadb-server"
    return "galera-4" if nodes > 1 and not os.path.exists(GALERA) else None


def free_port():
    """Below those that the system gives to whoever connects, so that a server finds its own again."""
    while True:
        port = random.randrange(15000, 30000)
        with socket.socket() as probe:
            try:
                probe.bind(("127.0.0.1", port))
                return port
            except OSError:
                pass


class Node:
    """A server with its data, which outlives its end by kill."""

    def __init__(self, folder, options):
        self.folder, self.options, self.process = folder, options, None
        self.port = free_port()
        os.mkdir(folder)
        if OWNER:
            shutil.chown(folder, "mysql", "mysql")
        self.log = os.path.join(folder, "log")
        subprocess.run(["mariadb-install-db", "--no-defaults", "--datadir=" + folder + "/data", "--skip-test-db",
                        "--auth-root-authentication-method=normal", "--innodb-log-file-size=8M"],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, env={**os.environ, "PATH": PATH}, **OWNER)

    def command(self, more):
        here = self.folder
        return ["mariadbd", "--no-defaults", "--datadir=" + here + "/data", "--socket=" + here + "/socket", "--tmpdir=" + here,
                "--pid-file=" + here + "/data/pid", "--port=%d" % self.port, "--bind-address=127.0.0.1", "--skip-name-resolve",
                "--lower-case-table-names=1", "--innodb-log-file-size=8M", "--innodb-buffer-pool-size=128M",
                *self.options, *more]

    def start(self, *more):
        for left in reversed(range(10)):
            try:
                return self.begin(more)
            except RuntimeError as failure:
                if not left or "Address already in use" not in str(failure):
                    raise
                time.sleep(1)  # what was killed holds it a moment longer

    def begin(self, more):
        with open(self.log, "ab") as log:
            begin = log.tell()
            self.process = begin_group(*os.path.split(self.folder), self.command(more), stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                       env={**os.environ, "PATH": PATH}, **OWNER)
        try:
            wait(lambda: self.process.poll() is not None or "ready for connections" in self.said(begin), "a server's start")
        finally:
            if "ready for connections" not in self.said(begin):
                raise RuntimeError("The server did not start:\n" + self.said(begin)[-4000:])
        return self

    def said(self, begin=0):
        with open(self.log, encoding="utf-8", errors="replace") as log:
            log.seek(begin)
            return log.read()

    def kill(self):
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()

    def sql(self, statements):
        """What the administrator's client prints: rows, columns apart by tabs."""
        return subprocess.run(["mariadb", "--no-defaults", "--batch", "--skip-column-names", "--socket=" + self.folder + "/socket", "--user=root"],
                              input=statements, text=True, check=True, capture_output=True).stdout


class Cluster:
    """Nodes in a folder; with more than one they replicate. `options` are the servers' own."""

    def __init__(self, folder, nodes, options):
        self.folder = folder
        self.nodes = [Node("%s/node%d" % (folder, n + 1), options) for n in range(nodes)]
        self.links = [free_port() for node in self.nodes]

    def start(self):
        for n, node in enumerate(self.nodes):
            node.start(*self.replication(n, self.links[:n]))
        # What one node is told, all know.
        self.nodes[0].sql("CREATE USER %s@'%%' IDENTIFIED BY '%s'; GRANT ALL ON *.* TO %s@'%%' WITH GRANT OPTION;" % (USER, PASSWORD, USER))
        self.write_settings(os.path.join(self.folder, "server.cnf"), USER, PASSWORD)
        return self

    def write_settings(self, path, user, password):
        ports = [node.port for node in self.nodes]
        where = "port=%d\nhost=%s" % (ports[0], ",".join("127.0.0.1:%d" % p for p in ports) if len(ports) > 1 else "127.0.0.1")
        with open(path, "w", encoding="utf-8") as file:
            file.write("[client]\n%s\nuser=%s\npassword=%s\n" % (where, user, password))

    def move(self, player, folder):
        """The books of a program folder go to the server."""
        script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "move")
        subprocess.run([script, player, folder], check=True, env={**os.environ, "MIRAV_SERVER": self.folder})

    def replication(self, n, others):
        if len(self.nodes) == 1:
            return []
        return ["--wsrep-on=ON", "--wsrep-provider=" + GALERA, "--binlog-format=ROW", "--innodb-autoinc-lock-mode=2", "--wsrep-auto-increment-control=OFF",
                "--wsrep-cluster-address=gcomm://" + ",".join("127.0.0.1:%d" % p for p in others),
                "--wsrep-node-address=127.0.0.1:%d" % self.links[n], "--wsrep-node-name=node%d" % (n + 1),
                "--wsrep-sst-method=rsync", "--wsrep-sst-receive-address=127.0.0.1:%d" % free_port(),
                "--wsrep-provider-options=gcache.size=64M;base_port=%d;ist.recv_addr=127.0.0.1:%d" % (self.links[n], free_port())]

    def back(self, n):
        """A killed server starts again; a node joins the others and has caught up with them."""
        others = [p for i, p in enumerate(self.links) if i != n]
        more = self.replication(n, others)
        if more:
            # How far it had come, so that it gets what it missed and not everything.
            begin = os.path.getsize(self.nodes[n].log)
            with open(self.nodes[n].log, "ab") as log:
                subprocess.run(self.nodes[n].command(more + ["--wsrep-recover"]), stdout=log, stderr=log, env={**os.environ, "PATH": PATH}, check=True, **OWNER)
            more.append("--wsrep-start-position=" + self.nodes[n].said(begin).split("Recovered position: ")[1].split()[0])
        self.nodes[n].start(*more)

    def in_step(self):
        """Every node that runs sees all that run, and has caught up."""
        running = [node for node in self.nodes if node.process.poll() is None]
        for node in running:
            seen = dict(line.split("\t") for line in node.sql("SHOW STATUS WHERE Variable_name IN ('wsrep_cluster_size', 'wsrep_local_state_comment')").splitlines())
            if seen != {"wsrep_cluster_size": str(len(running)), "wsrep_local_state_comment": "Synced"}:
                return False
        return True


def wait(until, what, seconds=120):
    end = time.monotonic() + seconds
    while not until():
        if time.monotonic() > end:
            raise TimeoutError("Waited %d s for %s" % (seconds, what))
        time.sleep(0.02)


def kill_group(pid):
    """Also of a process that somebody else started; it is gone then."""
    try:
        os.killpg(pid, signal.SIGKILL)
        os.waitpid(pid, 0)
    except ProcessLookupError:
        pass
    except ChildProcessError:
        time.sleep(0.1)


def begin_group(folder, name, command, **how):
    """A process that goes when the folder is cleaned up, with all that it starts: it says itself who it is, first."""
    says = ["sh", "-c", 'echo $$ >"$0" && exec "$@"', os.path.join(folder, name + ".pid")]
    return subprocess.Popen(says + command, start_new_session=True, **how)


class Servers:
    """`with Servers(3) as cluster`. A process of its own cleans up when this one is gone, even when it was killed."""

    def __init__(self, nodes=1, options=()):
        self.count, self.options = nodes, list(options)

    def __enter__(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
            signal.signal(number, lambda number, frame: os._exit(128 + number))
        memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
        self.folder = tempfile.mkdtemp(prefix="mirav-server-", dir=memory)
        os.chmod(self.folder, 0o755)
        if OWNER:
            shutil.chown(self.folder, "mysql", "mysql")
        read, self.lives = os.pipe()
        if os.fork() == 0:
            os.setsid()
            if os.fork() == 0:
                os.close(self.lives)
                null = os.open(os.devnull, os.O_RDWR)
                for stream in range(3):  # whoever reads what the test says shall not wait for this one
                    os.dup2(null, stream)
                for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
                    signal.signal(number, signal.SIG_IGN)
                os.read(read, 1)
                self.clean()
            os._exit(0)
        os.wait()
        os.close(read)
        try:
            return Cluster(self.folder, self.count, self.options).start()
        except BaseException:
            self.clean()
            raise

    def __exit__(self, *error):
        self.clean()

    def clean(self):
        for name in os.listdir(self.folder) if os.path.isdir(self.folder) else []:
            if name.endswith(".pid"):
                with open(os.path.join(self.folder, name), encoding="ascii") as file:
                    kill_group(int(file.read() or 0) or 1 << 30)
        shutil.rmtree(self.folder, ignore_errors=True)
