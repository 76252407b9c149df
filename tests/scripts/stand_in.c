/* Stands in for the solvers and tools that the scripts of an inversion folder call: one program, copied under each name.
 *
 * It does not compute. It notes its folder and arguments in the log, then each file that it would read and that nobody has
 * written, and leaves the files that it would write. What stands in a solver's input file is told by its shape, one letter
 * per line, in the environment: SHAPE_maginv3d=nnnff...
 *     0  a number that begins with 0, or with 1 in a ".restart" file
 *     n  numbers
 *     f  files, "|" between them
 *     m  a file, "null", "VALUE" and a number, or numbers
 *     .  words
 */
#include <ctype.h>
#include <direct.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* Digits are arguments, "folder", "input", "files" and "extras" the procedures below; other words are files. */
static const struct role {
    const char *program, *reads, *writes;
} roles[] = {
    { "DMXextract", "1 2 extras", "3" },
    { "QVextract", "1 2 extras", "3" },
    { "DMXnullvol", "1 2", "3" },
    { "QVnullvol", "1 2", "3" },
    { "magfor3d", "files", "magfor3d.mag" },
    { "gzfor3d", "files", "gzfor3d.grv" },
    { "qvpre3d", "1 2 4", "3" },
    { "DMXdelreg", "1 3", "4" },
    { "pfweight", "input", "weights" },
    { "magsen3d", "input", "maginv3d.mtx" },
    { "gzsen3d", "files", "gzinv3d.mtx" },
    { "qvsen3d", "input", "matrices" },
    { "qvsen3d_cluster_controller", "folder", "matrices" },
    { "maginv3d", "input", "maginv3d.kap maginv3d.sus maginv3d.pre" },
    { "gzinv3d", "input", "gzinv3d.rho gzinv3d.den gzinv3d.pre" },
    { "qvinv3d", "input", "results" },
    { "dmxerror", "1 2 4", "3" },
    { "QVerror", "1 2 4", "3" },
    { "DMXinsert", "1 2 3 4", "4" },
    { "QVinsert", "1 2 3 4", "4" },
    { "QVsen3D_RPCServer", "", "" },
};

static int count;
static char ** arguments;
static char weight_type; /* 1 depth, 2 distance */

/* One open and one write per line, as two programs may run at a time. */
static void note(const char * format, ...)
{
    FILE * file = fopen(getenv("STAND_IN_LOG"), "ab");
    va_list values;
    va_start(values, format);
    if (!file || vfprintf(file, format, values) < 0 || fclose(file)) abort();
    va_end(values);
}

static int exists(const char * name)
{
    FILE * file = fopen(name, "rb");
    return file && !fclose(file);
}

static void need(const char * name)
{
    if (!exists(name)) note("    lacks %s\n", name);
}

/* Added to what is there, as scripts put results into files that have to exist before. */
static void leave(const char * name)
{
    FILE * file = fopen(name, "ab");
    if (!file || fputs("stand-in\r\n", file) < 0 || fclose(file)) note("    cannot write %s\n", name);
}

static void each(const char * names, const char * delimiters, void (*action)(const char *))
{
    char text[1000], *rest = NULL;
    snprintf(text, sizeof text, "%s", names);
    for (char * name = strtok_s(text, delimiters, &rest); name; name = strtok_s(NULL, delimiters, &rest)) action(name);
}

static int is_file_name(const char * text)
{
    const char * dot = strrchr(text, '.');
    return dot && isalpha((unsigned char)dot[1]);
}

static int are_numbers(const char * text)
{
    char * end;
    if (!*text) return 0;
    for (; *text; text = end + strspn(end, " ,")) {
        strtod(text, &end);
        if (end == text) return 0;
    }
    return 1;
}

static void read_line(const char * line, int number, char letter)
{
    const int null = !stricmp(line, "null") || !strncmp(line, "VALUE ", 6);
    if (letter == 'f' || (letter == 'm' && is_file_name(line)))
        each(line, "|", need);
    else if ((isdigit((unsigned char)letter) && *line != letter) || (letter == 'n' && !are_numbers(line)) ||
             (letter == 'm' && !null && !are_numbers(line)) || !*line)
        note("    line %d should be %c: %s\n", number, letter, line);
    if (number == 5) weight_type = *line;
}

static void read_input(const char * program, const char * name)
{
    char variable[100], line[1000];
    int number = 0;
    const char first = strstr(name, ".restart") ? '1' : '0';
    snprintf(variable, sizeof variable, "SHAPE_%s", program);
    const char * shape = getenv(variable) ? getenv(variable) : "";
    FILE * file = fopen(name, "rb");
    if (!file) note("    lacks %s\n", name);
    while (file && fgets(line, sizeof line, file)) {
        line[strcspn(line, "\r\n")] = '\0';
        if (number < (int)strlen(shape)) read_line(line, number + 1, shape[number] == '0' ? first : shape[number]);
        ++number;
    }
    if (file && number != (int)strlen(shape)) note("    %s has %d lines\n", name, number);
    if (file) fclose(file);
}

/* What is named after the ranges of an extraction. Readings go into the tile as ".dat", from which its ".obs" is made. */
static void read_extras(void)
{
    for (int i = 10; i < count; ++i) {
        if (!is_file_name(arguments[i])) continue;
        need(arguments[i]);
        if (!strcmp(arguments[i], "..\\mag.obs")) leave("mag.dat");
        if (!strcmp(arguments[i], "..\\grav.obs")) leave("grav.dat");
    }
}

/* The arguments are files, or an input file and the number of threads. */
static void read_files(void)
{
    if (count > 1 && strstr(arguments[1], ".inp"))
        read_input(arguments[0], arguments[1]);
    else
        for (int i = 1; i < count; ++i) need(arguments[i]);
}

static void do_reading(const char * word)
{
    if (isdigit((unsigned char)*word))
        *word - '0' < count ? each(arguments[*word - '0'], "|", need) : note("    has no argument %s\n", word);
    else if (!strcmp(word, "extras"))
        read_extras();
    else if (!strcmp(word, "files"))
        read_files();
    else if (!strcmp(word, "input"))
        count > 1 ? read_input(arguments[0], arguments[1]) : note("    has no input file\n");
    else if (chdir(count > 1 ? arguments[1] : "")) /* the cluster's controller gets a folder */
        note("    no such folder\n");
    else
        read_input("qvsen3d", "qvsen3d.inp");
}

static void do_writing(const char * word)
{
    if (isdigit((unsigned char)*word))
        *word - '0' < count ? leave(arguments[*word - '0']) : note("    has no argument %s\n", word);
    else if (!strcmp(word, "weights"))
        leave(weight_type == '2' ? "distance_weight.txt" : "depth_weight.txt");
    else if (!strcmp(word, "matrices"))
        each(getenv("MATRICES"), " ", leave);
    else if (!strcmp(word, "results"))
        each(exists("mag.obs") ? "qvinv3d.kap qvinv3d.sus qvinv3d.pre" : "qvinv3d.rho qvinv3d.den qvinv3d.pre", " ", leave);
    else
        leave(word);
}

static const char * file_name_of(const char * path)
{
    for (const char * c = path; *c; ++c)
        if (*c == '\\' || *c == '/' || *c == ':') path = c + 1;
    return path;
}

int main(int argument_count, char ** given)
{
    char folder[1000], line[2000] = "";
    count = argument_count;
    arguments = given;
    arguments[0] = strdup(file_name_of(arguments[0]));
    if (strstr(arguments[0], ".exe")) *strstr(arguments[0], ".exe") = '\0';
    for (int i = 0; i < count; ++i) snprintf(line + strlen(line), sizeof line - strlen(line), " %s", arguments[i]);
    note("%s:%s\n", file_name_of(getcwd(folder, sizeof folder)), line);

    const struct role * role = roles;
    const struct role * const end = roles + sizeof roles / sizeof *roles;
    while (role < end && stricmp(role->program, arguments[0])) ++role;
    if (role == end) return note("    no such program\n"), 1;
    each(role->reads, " ", do_reading);
    each(role->writes, " ", do_writing);
    return 0;
}
