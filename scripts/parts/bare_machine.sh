# A bare Debian 12 in a folder of its own, for scripts that find out what works where nothing is installed (to be sourced; root only).
#   bare_machine_make         makes it in $machine, goes when the script ends
#   inside [NAME=VALUE ...] COMMAND...   runs a command in it, with nothing of this machine's environment
machine=

bare_machine_remove() {
  local mount
  for mount in dev/pts dev sys proc; do
    umount -q "$machine/$mount" 2>/dev/null || umount -q -l "$machine/$mount" || true  # Interrupted, what runs in it may be at it still.
  done
  rm -rf --one-file-system "$machine" "$machine.log"
}

bare_machine_make() {
  [[ $(id -u) -eq 0 ]] || { echo "only root can make a machine" >&2; return 1; }
  command -v debootstrap >/dev/null || DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends debootstrap
  machine=$(mktemp -d "${TMPDIR:-/var/tmp}/bare_machine.XXXXXX")
  trap bare_machine_remove EXIT
  chmod 755 "$machine"  # It becomes a root folder: programs that give up root's rights must get past it.

  # From where this machine gets its own packages, and how.
  local mirror part
  mirror=$(apt-get indextargets --format '$(SITE) $(CODENAME)' 'Created-By: Packages' | awk '$2 == "bookworm" { print $1; exit }')
  [[ -n $mirror ]] || { echo "no source of packages for bookworm on this machine" >&2; return 1; }
  debootstrap --variant=minbase bookworm "$machine" "$mirror" >"$machine.log" 2>&1 || { tail "$machine.log" >&2; return 1; }
  rm "$machine/etc/apt/sources.list"  # This machine's own hold the same source.
  for part in apt.conf.d sources.list sources.list.d trusted.gpg.d; do
    if [[ -e /etc/apt/$part ]]; then cp -r "/etc/apt/$part" "$machine/etc/apt/"; fi
  done
  cp -r /usr/share/keyrings "$machine/usr/share/"
  cp /etc/resolv.conf /etc/hosts "$machine/etc/"
  mount -t proc proc "$machine/proc"
  mount -t sysfs -o ro sysfs "$machine/sys"  # Engines of a fleet count the cores there.
  mount --bind /dev "$machine/dev"
  mount --bind /dev/pts "$machine/dev/pts"
}

inside() {
  chroot "$machine" env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}
