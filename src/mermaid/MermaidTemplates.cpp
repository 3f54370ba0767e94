#include "mermaid/MermaidTemplates.h"

#include <array>

namespace tarnquill::MermaidTemplates {

namespace {

constexpr std::array kTemplates{
    Template{.title = u"Flowchart", .source = uR"(flowchart TD
    %% From pasted text to something readable
    A[Paste, drop or open] --> B{Which format?}
    B -->|JSON| C[Format]
    B -->|CSV| D[Show as a table]
    B -->|Base64| E[Decode]
    E -->|gzip| F[Unpack]
    C --> G([Copy the result])
    D --> G
    F --> G

    style B stroke-width:2px)"},
    Template{.title = u"Graph", .source = uR"(graph LR
    idea([Idea]) --> draft[Draft]
    draft --> review{Good enough?}
    review -->|no| draft
    review -->|yes| done([Published]))"},
    Template{.title = u"Sequence", .source = uR"(sequenceDiagram
    autonumber
    actor user as Reader
    participant app as Program
    participant disk as Disk
    user->>app: Drop a file
    activate app
    app->>disk: Read it
    disk-->>app: Its bytes
    alt readable
        app-->>user: Show the text
    else not text
        app-->>user: Say why not
    end
    deactivate app
    Note over app,disk: Nothing leaves the machine)"},
    Template{.title = u"Class", .source = uR"(classDiagram
    class Shape {
        <<interface>>
        +area() double
    }
    class Circle {
        -double radius
        +area() double
    }
    class Square {
        -double side
        +area() double
    }
    class Drawing {
        +add(Shape shape)
    }
    Shape <|.. Circle
    Shape <|.. Square
    Drawing "1" o-- "many" Shape : holds)"},
    Template{.title = u"State", .source = uR"(stateDiagram-v2
    [*] --> Idle
    Idle --> Working : text changed
    state Working {
        [*] --> Waiting
        Waiting --> Running : quiet for a moment
    }
    Working --> Idle : result shown
    Working --> Working : text changed
    Idle --> [*])"},
    Template{.title = u"State (Classic)", .source = uR"(stateDiagram
    [*] --> Closed
    Closed --> Open : push
    Open --> Closed : pull
    Closed --> Locked : turn key
    Locked --> Closed : turn key)"},
    Template{.title = u"Entity Relationship", .source = uR"(erDiagram
    CUSTOMER ||--o{ ORDER : places
    ORDER ||--|{ LINE : contains
    PRODUCT ||--o{ LINE : "is in"
    CUSTOMER {
        int id PK
        string name
        string email
    }
    ORDER {
        int id PK
        date placed
    }
    LINE {
        int quantity
        decimal price
    })"},
    Template{.title = u"User Journey", .source = uR"(journey
    title A morning
    section At home
      Wake up: 2: Me
      Make coffee: 4: Me, Cat
    section On the way
      Catch the train: 3: Me
      Read a book: 5: Me)"},
    Template{.title = u"Gantt", .source = uR"(gantt
    title A small release
    dateFormat YYYY-MM-DD
    axisFormat %d %b
    section Build
        Design        :done, design, 2026-01-05, 5d
        Write         :active, write, after design, 10d
        Review        :review, after write, 4d
    section Ship
        Package       :package, after review, 2d
        Release       :milestone, after package, 0d)"},
    Template{.title = u"Pie", .source = uR"(pie showData
    title Where the time goes
    "Reading code" : 45
    "Writing code" : 25
    "Meetings" : 20
    "Coffee" : 10)"},
    Template{.title = u"Quadrant", .source = uR"(quadrantChart
    title What to do first
    x-axis Little work --> Much work
    y-axis Little use --> Much use
    quadrant-1 Plan
    quadrant-2 Do now
    quadrant-3 Maybe later
    quadrant-4 Leave
    Fix the typo: [0.15, 0.7]
    New theme: [0.45, 0.35]
    Rewrite: [0.9, 0.25]
    Faster start: [0.65, 0.85])"},
    Template{.title = u"Requirement", .source = uR"(requirementDiagram
    requirement answer {
        id: 1
        text: The window always answers
        risk: high
        verifymethod: test
    }
    performanceRequirement quick {
        id: 1.1
        text: A keystroke shows at once
        risk: medium
        verifymethod: demonstration
    }
    element editor {
        type: program
    }
    editor - satisfies -> quick
    answer - contains -> quick)"},
    Template{.title = u"Git Graph", .source = uR"(gitGraph
    commit id: "Start"
    branch feature
    checkout feature
    commit id: "Try"
    commit id: "Improve"
    checkout main
    commit id: "Fix"
    merge feature tag: "v1.0"
    commit id: "Next")"},
    Template{.title = u"Mindmap", .source = uR"(mindmap
  root((Trip))
    Where
      Sea
      Mountains
    When
      Spring
      Autumn
    Pack
      Shoes
      Camera
      Book)"},
    Template{.title = u"Timeline", .source = uR"(timeline
    title Writing things down
    3200 BC : Clay tablets
    105 : Paper
    1450 : Movable type
    1868 : Typewriter
    1991 : The web : Unicode)"},
    Template{.title = u"ZenUML", .source = uR"(zenuml
    title Opening a file
    User->Window.open(path) {
        text = Reader.read(path)
        if(text) {
            Editor.show(text)
        } else {
            Alert.say("Not a text")
        }
    })"},
    Template{.title = u"Sankey", .source = uR"(sankey-beta

Sun,Panels,40
Wind,Turbines,35
Panels,Grid,34
Panels,Lost,6
Turbines,Grid,31
Turbines,Lost,4
Grid,Homes,45
Grid,Industry,20)"},
    Template{.title = u"XY Chart", .source = uR"(xychart-beta
    title "Rain and sun"
    x-axis [Jan, Feb, Mar, Apr, May, Jun]
    y-axis "Hours a week" 0 --> 60
    bar [18, 22, 30, 38, 46, 52]
    line [40, 36, 33, 28, 24, 20])"},
    Template{.title = u"Block", .source = uR"(block-beta
    columns 3
    browser["Browser"] space:2
    space:3
    server["Server"] space cache[("Cache")]
    browser --> server
    server --> cache
    style cache stroke-width:2px)"},
    Template{.title = u"Packet", .source = uR"(packet-beta
    title UDP header
    0-15: "Source port"
    16-31: "Destination port"
    32-47: "Length"
    48-63: "Checksum"
    64-95: "Data")"},
    Template{.title = u"Architecture", .source = uR"(architecture-beta
    group home(cloud)[Home]
    service door(internet)[Router] in home
    service box(server)[Server] in home
    service files(disk)[Files] in home
    service list(database)[Catalogue] in home
    door:R -- L:box
    box:R -- L:files
    box:B -- T:list)"},
    Template{.title = u"Kanban", .source = uR"(kanban
    todo[To do]
        docs[Write the guide]
        icons[Draw the icons]
    doing[Doing]
        search[Faster search]
    done[Done]
        undo[Undo everything])"},
    Template{.title = u"Radar", .source = uR"(radar-beta
    title Two kitchens
    axis taste["Taste"], price["Price"], speed["Speed"]
    axis place["Place"], staff["Service"]
    curve a["Corner"]{80, 90, 70, 40, 60}
    curve b["Harbour"]{90, 40, 50, 95, 80}
    max 100
    min 0)"},
    Template{.title = u"Treemap", .source = uR"(treemap-beta
"Disk"
    "Pictures"
        "Holidays": 40
        "Family": 25
    "Music": 20
    "Documents"
        "Work": 10
        "Letters": 5)"},
    Template{.title = u"C4 Context", .source = uR"(C4Context
    title A library
    Person(reader, "Reader", "Borrows books")
    System(library, "Library", "Knows every book and loan")
    System_Ext(mail, "Mail", "Sends reminders")
    Rel(reader, library, "Searches and borrows")
    Rel(library, mail, "Asks to remind")
    Rel(mail, reader, "Reminds"))"},
    Template{.title = u"C4 Container", .source = uR"(C4Container
    title The library's parts
    Person(reader, "Reader", "Borrows books")
    System_Boundary(library, "Library") {
        Container(site, "Site", "Web pages", "Search and account")
        Container(loans, "Loans", "Service", "Who has which book")
        ContainerDb(books, "Catalogue", "Database", "All books")
    }
    Rel(reader, site, "Uses")
    Rel(site, loans, "Asks")
    Rel(loans, books, "Reads"))"},
};

} // namespace

std::span<const Template> all() {
    return kTemplates;
}

} // namespace tarnquill::MermaidTemplates
