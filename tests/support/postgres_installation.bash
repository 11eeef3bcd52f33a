# An installation of PostgreSQL that has what an extension would install, without installing it.

# make_installation ROOT BIN STAGE: PostgreSQL looks for extensions where its own program stands. So
# its programs stand below ROOT; everything else there is a link to what is installed. STAGE has what
# an installation of the extension would put under /.
make_installation() {
  local root=$1 bin=$2 stage=$3 folder
  for folder in "$(pg_config --sharedir)" "$(pg_config --sharedir)/extension" "$(pg_config --pkglibdir)"; do
    mkdir -p "$root$folder"
    find "$folder" -mindepth 1 -maxdepth 1 ! -name extension -exec ln -s -t "$root$folder" {} +
  done
  mkdir -p "$root$bin"
  cp "$bin"/{postgres,initdb,pg_ctl,pg_basebackup} "$root$bin"
  cp -r --remove-destination "$stage/." "$root"
  chmod -R a+rX "$root"
}
