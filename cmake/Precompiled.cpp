// The source of targets that are there for their precompiled headers only.
int main() {}
