' A record of a user-defined type fits when Len is at least its size.
'> 2 Ada 36
'> 1 Bob 40
Type Person
    id As Integer
    name As String * 10
    age As Byte
End Type

Sub main()
    Dim p As Person, q As Person
    Open "C:\r" For Random As #1 Len = Len(p)
    p.id = 1: p.name = "Bob": p.age = 40
    Put #1, 1, p
    p.id = 2: p.name = "Ada": p.age = 36
    Put #1, 2, p
    Get #1, 2, q
    Debug.Print q.id & " " & RTrim(q.name) & " " & q.age
    Get #1, 1, q
    Debug.Print q.id & " " & RTrim(q.name) & " " & q.age
End Sub
